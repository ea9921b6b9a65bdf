#pragma once

/// What this process costs the machine.
struct Memory {
  long resident = 0;   ///< KiB; RSS: all pages, shared ones in full
  long anonymous = 0;  ///< KiB; pages that are no file's: heap and stacks

  /// Now, after the allocator has given back what it keeps for later: what is left is in use.
  /// Zeros where the system does not tell.
  static Memory trimmed();
};
