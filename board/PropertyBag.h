#pragma once

#include <QImage>
#include <cstdint>
#include <map>
#include <string>
#include <variant>

/// What an owner's layout stores of a control: values by key. A value equal to its default is not
/// stored, and reading a key that is not there gives the default.
class PropertyBag {
 public:
  using Value = std::variant<bool, std::int16_t, QImage>;

  void WriteProperty(const std::string& key, const Value& value, const Value& standard);

  /// The stored value, or `standard` when the key is missing or holds a value of another type.
  template <class Type>
  Type ReadProperty(const std::string& key, const Type& standard) const {
    const auto found = values_.find(key);
    if (found == values_.end()) return standard;
    const Type* value = std::get_if<Type>(&found->second);
    return value ? *value : standard;
  }

  bool contains(const std::string& key) const { return values_.contains(key); }

 private:
  std::map<std::string, Value> values_;
};
