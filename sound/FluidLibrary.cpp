#include "sound/FluidLibrary.h"

#include <QLibrary>

namespace {

constexpr int kBinaryVersion = 3;  // of the library's interface; the header is of version 2

FluidLibrary find() {
  FluidLibrary found;
  QLibrary library("fluidsynth", kBinaryVersion);
  found.complete = library.load();
#define QUINZOLITH_FIND(name)                                               \
  found.name = reinterpret_cast<decltype(::name)*>(library.resolve(#name)); \
  found.complete = found.complete && found.name;
  QUINZOLITH_EACH_FLUID_FUNCTION(QUINZOLITH_FIND)
#undef QUINZOLITH_FIND
  return found;
}

}  // namespace

const FluidLibrary& fluid() {
  static const FluidLibrary library = find();
  return library;
}
