#include "text/text_format.h"

String EncodingName(const TextFormat& format) {
  switch (format.Encoding) {
    case Encoding::Utf8:
      return format.Mark ? u"UTF-8 with BOM" : u"UTF-8";
    case Encoding::Utf16Le:
      return u"UTF-16 LE";
    case Encoding::Utf16Be:
      return u"UTF-16 BE";
    default:
      return u"Windows-1252";
  }
}

String LineEndsName(const TextFormat& format) {
  if (int{format.HasCrLf} + int{format.HasCr} + int{format.HasLf} > 1) return u"mixed";
  if (format.LineEnds == LineEnds::Lf) return u"LF";
  return format.HasCr ? u"CR" : u"CR LF";
}
