// Feeds damaged pictures of help files to the reader that the viewer uses.
#include <QGuiApplication>
#include <cstddef>
#include <cstdint>

#include "viewer/HelpBook.h"

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  new QGuiApplication(*argc, *argv);  // never deleted, as in Page_fuzz
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  HelpBook::decoded(QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)));
  return 0;
}
