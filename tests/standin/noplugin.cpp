// A library that loads and is no plugin.
extern "C" __attribute__((visibility("default"))) int answer() { return 42; }
