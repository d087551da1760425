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

String NewFileTitle(StringView path) {
  return String(kProduct) + u" - NEW FILE in " + String(path);
}
