#include "board/PropertyBag.h"

void PropertyBag::WriteProperty(const std::string& key, const Value& value, const Value& standard) {
  if (value == standard)
    values_.erase(key);
  else
    values_[key] = value;
}
