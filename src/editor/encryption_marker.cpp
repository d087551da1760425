#include "editor/encryption_marker.h"

bool HoldsEncryptionMarker(StringView text) {
  for (const StringView end : {u" 2.0**", u"**"}) {
    if (Contains(text, String(kEncryptionMarkerStart) + String(end))) return true;
  }
  return false;
}
