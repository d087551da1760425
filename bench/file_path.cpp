// Upper-cases a text file the way a tool does on the file path: to be timed against tr and perl
// on the same file.
//
//   file_path IN OUT

#include <chrono>
#include <iostream>

#include "platform/text_file.h"

int main(int argc, char** argv) {
  if (argc != 3) {
    std::cerr << "usage: file_path IN OUT\n";
    return 2;
  }
  const auto start = std::chrono::steady_clock::now();
  try {
    TextReader reader(FromUtf8(argv[1]));
    TextWriter writer(FromUtf8(argv[2]), reader.Format());
    String upper;
    while (!reader.AtEnd()) {
      UCaseInto(reader.ReadLine(), upper);
      writer.Print(upper);
    }
    writer.Close();
  } catch (const std::exception& error) {
    std::cerr << "file_path: " << error.what() << '\n';
    return 1;
  }
  const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start;
  std::cout << time.count() << " s\n";
}
