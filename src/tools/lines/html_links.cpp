#include "tools/lines/html_links.h"

#include <span>

namespace {

constexpr std::size_t kNone = StringView::npos;

struct AddressStart {
  StringView Word;
  // What a browser needs in front of the address.
  StringView Scheme;
};

constexpr AddressStart kWebStarts[] = {{u"www.", u"http://"}, {u"http:", u""}};
constexpr AddressStart kFtpStarts[] = {{u"ftp:", u""}};

// Where the starts of addresses are, each kind searched for no further than needed.
class NextStart {
 public:
  NextStart(StringView lower, std::span<const AddressStart> starts)
      : lower_(lower), starts_(starts) {}

  // The nearest start at or behind `from`, and its place in the line; null when there is none.
  const AddressStart* Find(std::size_t from, std::size_t& place) {
    const AddressStart* nearest = nullptr;
    place = kNone;
    for (std::size_t i = 0; i < starts_.size(); ++i) {
      if (!known_[i] || (places_[i] != kNone && places_[i] < from))
        places_[i] = lower_.find(starts_[i].Word, from);
      known_[i] = true;
      if (places_[i] >= place) continue;
      place = places_[i];
      nearest = &starts_[i];
    }
    return nearest;
  }

 private:
  StringView lower_;
  std::span<const AddressStart> starts_;
  bool known_[2] = {};
  std::size_t places_[2] = {};
};

void AddLinks(String& line, std::span<const AddressStart> starts) {
  const String lower = LCase(line);
  NextStart next(lower, starts);
  String result;
  std::size_t done = 0;
  std::size_t place = 0;
  while (const AddressStart* start = next.Find(done, place)) {
    std::size_t end = line.find(u' ', place);
    // A space that ends the line goes.
    if (end == kNone || end + 1 == line.size()) end = line.size();
    const StringView address = Trim(StringView(lower).substr(place, end - place));
    result.append(line, done, place - done).append(u"<A HREF=\"").append(start->Scheme);
    result.append(address).append(u"\">").append(address).append(u"</A>");
    done = end;
  }
  if (done == 0) return;
  result.append(line, done);
  line = std::move(result);
}

}  // namespace

void AddLinks(String& line) {
  AddLinks(line, kWebStarts);
  // Over the links as well.
  AddLinks(line, kFtpStarts);
}
