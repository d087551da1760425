#pragma once
// Turns a text into the bytes of a file, block by block.

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "text/text_format.h"

class TextEncoder {
 public:
  using Sink = std::function<void(std::string_view bytes)>;

  // The format holds all that will be put. Begins with its mark.
  TextEncoder(const TextFormat& format, Sink sink);

  // Goes over to another format, from the beginning of its file.
  void Restart(const TextFormat& format);
  // The text as it stands.
  void Put(StringView text);
  // The text, its line ends as the format has them: in a Unix text CR LF and CR become LF.
  void PutText(StringView text);
  // What stands behind the text: the odd byte. Hands all bytes to the sink.
  void Finish();
  // Hands all bytes to the sink.
  void Flush();

 private:
  // CR LF, or LF in a Unix text.
  void PutLineEnd();
  void PutBytes(std::string_view bytes);

  ::Encoding encoding_ = ::Encoding::Utf8;
  bool unixText_ = false;
  std::string oddByte_;
  std::string lineEnd_;
  Sink sink_;
  std::unique_ptr<char[]> buffer_;
  std::size_t used_ = 0;
};
