#pragma once
// Makes plain text of an HTML page, a line of its source at a time. A tag that goes over two lines
// is none.

#include "tools/lines/line_io.h"

class TextFromHtml {
 public:
  // Prints what is left of a line, if anything; it may hold line ends.
  void Line(StringView line, LineSink& out);
  // Whether the page had a BODY tag so far. Lines with tags in front of it leave nothing.
  bool BodySeen() const { return bodySeen_; }

 private:
  // The tags of the line, and what becomes of the text round them.
  void TakeOutTags(StringView line);
  void Paragraph(StringView after);
  void Break(StringView after);
  void RebuildLine(bool decoded);
  // Whether the text so far is blank.
  bool TextIsBlank();

  bool bodySeen_ = false;
  bool inScript_ = false;
  // In upper case, from line to line.
  String lastTag_;

  // Of the line.
  String text_;
  String upper_;
  // That so many of its first characters are spaces is known.
  std::size_t leadingSpaces_ = 0;
  bool forceBlank_ = false;
  bool paraSeen_ = false;
  bool breakSeen_ = false;
  // Nothing stands behind the last tag, and the text is what stood in front of it.
  bool endsInTag_ = false;
  // How much of the line is still to be looked at.
  StringView rest_;
};
