// Feeds damaged MIDI files to the one who tells how long they play: an hour at most.
#include "sound/TuneFile.h"
#include "tests/fuzz/Claims.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  stopAtBrokenClaims();
  EXPECT_LE(midiLength({data, size}).value_or(std::chrono::milliseconds(0)), std::chrono::hours(1));
  return 0;
}
