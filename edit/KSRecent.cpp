#include "edit/KSRecent.h"

#include <algorithm>

#include "platform/Settings.h"

namespace {

constexpr std::size_t kLongest = 30;  // characters that a caption shows whole
constexpr std::size_t kKeptOfName = 25;
constexpr std::size_t kDotsLength = 3;  // "../" of an earlier step

bool startsCharacter(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U;  // else it continues one
}

std::size_t length(const std::string& text) {
  return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), startsCharacter));
}

/// Where the character of that number (from 0) begins, in bytes.
std::size_t byteOf(const std::string& text, std::size_t character) {
  std::size_t seen = 0;
  for (std::size_t byte = 0; byte < text.size(); ++byte)
    if (startsCharacter(text[byte]) && seen++ == character) return byte;
  return text.size();
}

std::string key(std::size_t entry) {
  return "Recent" + std::to_string(entry + 1);
}

}  // namespace

void KSRecent::MenuCount(std::int16_t R) {
  MenuCount_ = R;
  Files_.resize(static_cast<std::size_t>(R) + 1);
}

void KSRecent::MenuForm(RecentMenu& form) {
  MenuForm_ = &form;
}

void KSRecent::Name(const std::string& N) {
  Name_ = N;
  for (std::size_t i = 0; i + 1 < Files_.size(); ++i)
    Files_[i] = Settings::get(Settings::application(), Name_, key(i), "");
  UpdateMenu();
}

const std::string& KSRecent::FileName(std::int16_t Index) const {
  return Files_.at(static_cast<std::size_t>(Index));
}

void KSRecent::AddRecent(std::string F) {
  const auto end = Files_.end() - 1;
  const auto found = std::find(Files_.begin(), end, F);
  const auto gap = found == end ? end - 1 : found;  // the place that the others move up to
  std::move_backward(Files_.begin(), gap, gap + 1);
  Files_.front() = std::move(F);
  SaveList();
  UpdateMenu();
}

void KSRecent::SaveList() const {
  for (std::size_t i = 0; i + 1 < Files_.size(); ++i)
    Settings::save(Settings::application(), Name_, key(i), Files_[i]);
}

void KSRecent::UpdateMenu() const {
  if (!MenuForm_) return;
  bool any = false;
  for (int i = 0; i < MenuCount_; ++i) {
    const std::string& file = Files_[static_cast<std::size_t>(i)];
    if (file.empty()) continue;
    MenuForm_->SetCaption(i, "&" + std::to_string(i + 1) + " " + Abbreviate(file));
    MenuForm_->SetVisible(i, true);
    any = true;
  }
  MenuForm_->SetVisible(MenuCount_, any);
}

std::string KSRecent::Abbreviate(const std::string& T) {
  std::string s = T;
  while (length(s) > kLongest) {
    const std::size_t p = s.find('/', byteOf(s, kDotsLength));
    if (p != std::string::npos)
      s = "../" + s.substr(p + 1);
    else
      s = ".." + s.substr(byteOf(s, length(s) - kKeptOfName));
  }
  return s;
}
