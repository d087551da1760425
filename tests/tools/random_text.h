#pragma once
// Random texts of a few tokens, the same in every run.

#include <random>
#include <span>

#include "text/text.h"

class RandomText {
 public:
  explicit RandomText(unsigned seed) : random_(seed) {}

  // 0 to most.
  std::size_t Number(std::size_t most) {
    return std::uniform_int_distribution<std::size_t>(0, most)(random_);
  }
  String Of(std::span<const StringView> tokens, std::size_t mostTokens) {
    String text;
    for (std::size_t left = Number(mostTokens); left > 0; --left)
      text += tokens[Number(tokens.size() - 1)];
    return text;
  }

 private:
  std::mt19937 random_;
};
