#pragma once

#include <optional>
#include <string_view>

/// What a stored text says as a Boolean, as the platform converts it: True and False in any case,
/// and any finite decimal number, which is true unless it is 0; blanks round it do not matter.
/// Nothing for every other text.
std::optional<bool> booleanFromText(std::string_view text);
