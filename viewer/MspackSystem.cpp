#include "viewer/MspackSystem.h"

#include <cstdlib>
#include <cstring>
#include <string_view>
#include <utility>

namespace {

void ignoreMessage(mspack_file* /*file*/, const char* /*format*/, ...) {}

}  // namespace

/// What libmspack holds while a file is open.
struct MspackSystem::Handle {
  MspackSystem* owner;
  qint64 position = 0;

  static Handle* of(mspack_file* file) { return reinterpret_cast<Handle*>(file); }
};

/// Stands in front of each piece of memory, so that freeing it gives the ceiling its bytes back.
/// The library hands alloc a copy of the system at times, so the count cannot be a member.
struct alignas(std::max_align_t) MspackSystem::Block {
  std::size_t bytes;
  static std::size_t left;
};
std::size_t MspackSystem::Block::left = kMemoryCeiling;

MspackSystem::MspackSystem(QIODevice& device) : mspack_system{}, device_(device) {
  open = [](mspack_system* self, const char* name, int mode) {
    const bool writes = std::string_view(name) == kOutput;
    if (writes != (mode == MSPACK_SYS_OPEN_WRITE)) return static_cast<mspack_file*>(nullptr);
    return reinterpret_cast<mspack_file*>(new Handle{static_cast<MspackSystem*>(self)});
  };
  close = [](mspack_file* file) { delete Handle::of(file); };
  read = [](mspack_file* file, void* buffer, int bytes) {
    Handle* handle = Handle::of(file);
    QIODevice& source = handle->owner->device_;
    if (bytes < 0) return -1;
    if (handle->position >= source.size()) return 0;
    if (!source.seek(handle->position)) return -1;
    const qint64 got = source.read(static_cast<char*>(buffer), bytes);
    if (got > 0) handle->position += got;
    return static_cast<int>(got);
  };
  write = [](mspack_file* file, void* buffer, int bytes) {
    MspackSystem* owner = Handle::of(file)->owner;
    if (bytes < 0 || owner->output_.size() + bytes > owner->outputCeiling_) return -1;
    owner->output_.append(static_cast<const char*>(buffer), bytes);
    return bytes;
  };
  seek = [](mspack_file* file, off_t offset, int mode) {
    Handle* handle = Handle::of(file);
    qint64 base = 0;
    if (mode == MSPACK_SYS_SEEK_CUR) base = handle->position;
    if (mode == MSPACK_SYS_SEEK_END) base = handle->owner->device_.size();
    qint64 target = 0;
    if (__builtin_add_overflow(base, offset, &target) || target < 0) return -1;
    handle->position = target;
    return 0;
  };
  tell = [](mspack_file* file) { return static_cast<off_t>(Handle::of(file)->position); };
  message = ignoreMessage;
  alloc = [](mspack_system*, std::size_t bytes) -> void* {
    if (bytes > Block::left) return nullptr;
    void* memory = std::malloc(sizeof(Block) + bytes);
    if (!memory) return nullptr;
    Block::left -= bytes;
    return new (memory) Block{bytes} + 1;
  };
  free = [](void* memory) {
    if (!memory) return;
    Block* block = static_cast<Block*>(memory) - 1;
    Block::left += block->bytes;
    std::free(block);
  };
  copy = [](void* from, void* to, std::size_t bytes) { std::memcpy(to, from, bytes); };
}

void MspackSystem::startOutput(qint64 ceiling) {
  output_.clear();
  outputCeiling_ = ceiling;
}

QByteArray MspackSystem::takeOutput() {
  return std::exchange(output_, {});
}
