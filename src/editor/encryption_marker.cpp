#include "editor/encryption_marker.h"

bool HoldsEncryptionMarker(StringView text) {
  static constexpr StringView kMarkers[] = {
      u"**This file has been encrypted with WordFlurn 2.0**",
      u"**This file has been encrypted with WordFlurn**",
  };
  for (const StringView marker : kMarkers) {
    if (Contains(text, marker)) return true;
  }
  return false;
}
