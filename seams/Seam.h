#pragma once

#include <type_traits>
#include <utility>

template <typename Part>
class Replacement;

/// A part of the machine, such as a clock, a system call or the place of a file, in whose place a
/// Replacement puts another for a while. Whoever uses the part calls it, or reaches into it, by the
/// seam's name.
template <typename Part>
class Seam {
 public:
  explicit Seam(Part real) : part_(std::move(real)) {}
  Seam(Seam&&) = delete;

  template <typename... Arguments>
  decltype(auto) operator()(Arguments&&... arguments) const {
    return part_(std::forward<Arguments>(arguments)...);
  }
  const Part& operator*() const { return part_; }
  const Part* operator->() const { return &part_; }
  Part* operator->() { return &part_; }  ///< for the part's own state

 private:
  friend class Replacement<Part>;
  Part part_;
};

/// Puts another part in as long as it lives, then what was there before. Several for one seam end
/// in the opposite order. From one thread at a time.
template <typename Part>
class Replacement {
 public:
  Replacement(Seam<Part>& seam, std::type_identity_t<Part> other)
      : seam_(seam), before_(std::exchange(seam.part_, std::move(other))) {}
  Replacement(Replacement&&) = delete;
  ~Replacement() { seam_.part_ = std::move(before_); }

 private:
  Seam<Part>& seam_;
  Part before_;
};
