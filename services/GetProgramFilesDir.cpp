#include "platform/Program.h"
#include "services/basKelvoWinAPI.h"

std::filesystem::path basKelvoWinAPI::GetProgramFilesDir() {
  return Program::programFilesFolder();
}
