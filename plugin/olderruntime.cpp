#include <new>

namespace std {

// Headers of today's compiler call this where a vector is asked for more than any memory holds. The C++ runtime of a
// five-year-old distribution does not have it, and a client there would not load the library for its sake. Linking the
// runtime in instead would ask for a C library that is newer still.
[[noreturn]] void __throw_bad_array_new_length() { throw bad_array_new_length(); }

} // namespace std
