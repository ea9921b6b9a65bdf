#include "viewer/HelpFile.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace {

constexpr qint64 kFileCeiling = 32LL << 20;
constexpr qint64 kReach = 512LL << 20;

bool readable(const mschmd_file& file) {
  return file.length >= 0 && file.length <= kFileCeiling && file.offset >= 0 &&
         file.offset <= kReach;
}

}  // namespace

HelpFile::HelpFile(std::unique_ptr<QIODevice> device)
    : device_(std::move(device)), system_(*device_) {}

HelpFile::~HelpFile() {
  if (header_) decompressor_->close(decompressor_, header_);
  if (decompressor_) mspack_destroy_chm_decompressor(decompressor_);
}

std::unique_ptr<HelpFile> HelpFile::open(std::unique_ptr<QIODevice> device) {
  int unusable = 0;
  MSPACK_SYS_SELFTEST(unusable);
  if (unusable || !device || !device->isOpen()) return nullptr;
  std::unique_ptr<HelpFile> file(new HelpFile(std::move(device)));
  return file->readDirectory() ? std::move(file) : nullptr;
}

bool HelpFile::readDirectory() {
  decompressor_ = mspack_create_chm_decompressor(&system_);
  if (!decompressor_) return false;
  header_ = decompressor_->open(decompressor_, MspackSystem::kDevice);
  if (!header_ || header_->length > device_->size()) return false;
  std::vector<mschmd_file*> files;
  for (mschmd_file* file = header_->files; file; file = file->next)
    if (file->filename[0] == '/' && readable(*file)) files.push_back(file);
  std::stable_sort(files.begin(), files.end(), [](const mschmd_file* a, const mschmd_file* b) {
    return std::pair(a->section->id, a->offset) < std::pair(b->section->id, b->offset);
  });
  for (mschmd_file* file : files) {
    const QString path = QString::fromUtf8(file->filename);
    files_.insert(path.toLower(), file);
    paths_ << path;
  }
  return true;
}

bool HelpFile::contains(const QString& path) const {
  return files_.contains(path.toLower());
}

std::optional<QByteArray> HelpFile::read(const QString& path) const {
  mschmd_file* file = files_.value(path.toLower());
  if (!file) return std::nullopt;
  system_.startOutput(file->length);
  const int error = decompressor_->extract(decompressor_, file, MspackSystem::kOutput);
  QByteArray bytes = system_.takeOutput();
  if (error != MSPACK_ERR_OK || bytes.size() != file->length) return std::nullopt;
  return bytes;
}
