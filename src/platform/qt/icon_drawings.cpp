#include <algorithm>
#include <array>

#include "platform/qt/icons.h"

namespace {

struct Drawing {
  StringView Name;
  std::string_view Lines;
};

constexpr std::array kDrawings{
    Drawing{u"open",
            "M 3 19 L 3 5 L 9 5 L 11 7.5 L 19 7.5 L 19 11 "
            "M 3 19 L 6.2 11 L 22 11 L 18.8 19 Z"},
    Drawing{u"new",
            "M 5.5 3 L 14 3 L 18.5 7.5 L 18.5 21 L 5.5 21 Z "
            "M 14 3 L 14 7.5 L 18.5 7.5"},
    Drawing{u"save",
            "M 4 4 L 17 4 L 20 7 L 20 20 L 4 20 Z M 8 4 L 8 9 L 15 9 L 15 4 "
            "M 7.5 20 L 7.5 13 L 16.5 13 L 16.5 20"},
    Drawing{u"print",
            "M 7 8.5 L 7 3 L 17 3 L 17 8.5 M 7 17.5 L 3.5 17.5 L 3.5 8.5 L 20.5 8.5 L 20.5 17.5 "
            "L 17 17.5 M 7 14 L 17 14 L 17 21 L 7 21 Z O 17.3 11.2 0.3"},
    Drawing{u"copy-all",
            "M 8.5 7.5 L 20 7.5 L 20 21 L 8.5 21 Z M 8.5 16.5 L 4 16.5 L 4 3 L 15.5 3 L 15.5 7.5 "
            "M 11.5 11.5 L 17 11.5 M 11.5 14.25 L 17 14.25 M 11.5 17 L 17 17"},
    Drawing{u"paste",
            "M 8.5 5 L 5 5 L 5 21 L 19 21 L 19 5 L 15.5 5 M 8.5 3 L 15.5 3 L 15.5 7 L 8.5 7 Z "
            "M 8.5 11.5 L 15.5 11.5 M 8.5 14.5 L 15.5 14.5 M 8.5 17.5 L 13 17.5"},
    Drawing{u"undo",
            "M 8.5 4 L 3.5 9 L 8.5 14 M 3.5 9 L 14.5 9 C 18 9 20.5 11.4 20.5 14.5 "
            "C 20.5 17.6 18 20 14.5 20 L 9.5 20"},
    Drawing{u"redo",
            "M 15.5 4 L 20.5 9 L 15.5 14 M 20.5 9 L 9.5 9 C 6 9 3.5 11.4 3.5 14.5 "
            "C 3.5 17.6 6 20 9.5 20 L 14.5 20"},
    Drawing{u"find", "O 10.5 10.5 6.8 M 15.5 15.5 L 21 21"},
    Drawing{u"custom-tool-1",
            "M 12 2.3 L 20.4 7.1 L 20.4 16.9 L 12 21.7 L 3.6 16.9 L 3.6 7.1 Z "
            "M 10 9.4 L 12.5 7.6 L 12.5 16.4"},
    Drawing{u"custom-tool-2",
            "M 12 2.3 L 20.4 7.1 L 20.4 16.9 L 12 21.7 L 3.6 16.9 L 3.6 7.1 Z "
            "M 9.3 10 C 9.3 6.8 14.7 6.8 14.7 10 C 14.7 12.3 9.8 13.6 9.3 16.4 L 14.9 16.4"},
    Drawing{u"batch",
            "M 3 9 L 14 9 L 14 21 L 3 21 Z M 6.5 9 L 6.5 6 L 17.5 6 L 17.5 18 L 14 18 "
            "M 10 6 L 10 3 L 21 3 L 21 15 L 17.5 15 M 6.8 12.2 L 11 15 L 6.8 17.8 Z"},
    Drawing{u"email", "M 2.5 5 L 21.5 5 L 21.5 19 L 2.5 19 Z M 2.5 6 L 12 13.5 L 21.5 6"},
    Drawing{u"email-poem",
            "M 5.5 9 L 2.5 11 L 2.5 21.5 L 21.5 21.5 L 21.5 11 L 18.5 9 "
            "M 2.5 11.5 L 12 17.5 L 21.5 11.5 M 5.5 13 L 5.5 2.5 L 18.5 2.5 L 18.5 13 "
            "M 8.8 6.3 L 15.2 6.3 M 8.8 9.3 L 15.2 9.3 M 8.8 12.3 L 12.5 12.3"},
    Drawing{u"information", "O 12 12 9.3 M 12 11 L 12 16.8 O 12 7.5 0.4"},
    Drawing{u"question",
            "O 12 12 9.3 M 9 9.6 C 9 5.8 15 5.8 15 9.4 C 15 11.8 12 11.6 12 14.2 O 12 17.2 0.4"},
    Drawing{u"warning", "M 12 3 L 22 20.5 L 2 20.5 Z M 12 9.5 L 12 14.6 O 12 17.5 0.4"},
    Drawing{u"folder", "M 3 19 L 3 5 L 9 5 L 11 7.5 L 21 7.5 L 21 19 Z"},
    Drawing{u"drive",
            "M 3 14 L 6 6 L 18 6 L 21 14 L 21 19 L 3 19 Z M 3 14 L 21 14 O 17.5 16.5 0.3"},
    // On a tile of its own colour.
    Drawing{u"application", "M 4.5 7 L 8.3 16 L 12 8.5 L 15.7 16 L 19.5 7 M 5.5 19.5 L 18.5 19.5"},
};

}  // namespace

std::string_view IconDrawing(StringView name) {
  const auto found = std::find_if(kDrawings.begin(), kDrawings.end(),
                                  [name](const Drawing& drawing) { return drawing.Name == name; });
  return found == kDrawings.end() ? std::string_view() : found->Lines;
}
