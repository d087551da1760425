#include "editor/encryption_marker.h"

#include <algorithm>
#include <array>

#include "platform/system/byte_file.h"

bool HoldsEncryptionMarker(StringView text) {
  for (const StringView end : {u" 2.0**", u"**"}) {
    if (Contains(text, String(kEncryptionMarkerStart) + String(end))) return true;
  }
  return false;
}

bool HoldsEncryptionMarker(InputFile& file) {
  // As bytes: in one byte a character, and in both orders of two.
  static const std::array<std::string, 3> kPatterns = [] {
    std::array<std::string, 3> patterns;
    for (const char c : ToUtf8(kEncryptionMarkerStart)) {
      patterns[0] += c;
      patterns[1].append({c, '\0'});
      patterns[2].append({'\0', c});
    }
    return patterns;
  }();
  constexpr std::size_t kOverlap = 2 * kEncryptionMarkerStart.size();
  bool found = false;
  std::string seam;
  const auto search = [&found](std::string_view bytes) {
    for (const std::string& pattern : kPatterns)
      found = found || bytes.find(pattern) != std::string_view::npos;
  };
  file.ReadRest([&](std::string_view bytes) {
    if (found) return;
    // What stands on both sides of where two blocks meet.
    seam += bytes.substr(0, kOverlap);
    search(seam);
    search(bytes);
    if (bytes.size() < kOverlap) {
      if (seam.size() > kOverlap) seam.erase(0, seam.size() - kOverlap);
    } else {
      seam = bytes.substr(bytes.size() - kOverlap);
    }
  });
  return found;
}
