#include "editor/titles.h"

namespace {

StringView Joint(TitleState state) {
  switch (state) {
    case TitleState::ReadOnly:
      return u" (read-only) - ";
    case TitleState::Encrypted:
      return u" (encrypted) - ";
    case TitleState::Plain:
      break;
  }
  return u" - ";
}

}  // namespace

String TitleOf(TitleState state, StringView name) {
  String title(kProduct);
  title += Joint(state);
  title += name;
  return title;
}

bool IsEncryptedTitle(StringView title) {
  // A file's own name may hold the word, so only the place behind the product counts.
  return title.starts_with(TitleOf(TitleState::Encrypted, u""));
}
