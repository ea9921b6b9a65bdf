// Feeds damaged help files to their reader: its tables, and all pages in the file.
#include <QBuffer>
#include <cstddef>
#include <cstdint>
#include <memory>

#include "viewer/HelpBook.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  auto buffer = std::make_unique<QBuffer>();
  buffer->setData(QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)));
  buffer->open(QIODevice::ReadOnly);
  const auto book = HelpBook::open(std::move(buffer));
  if (!book) return 0;
  book->topicPage(1000);
  for (const QUrl& address : book->pages()) book->page(address);
  return 0;
}
