// Leaks the sanitizer build does not count in the test programs: the font
// library's caches, which it keeps for the life of the process and frees for
// nobody, whatever the program does. Compiled into each test program only when
// the build has the sanitizers (ZW_SANITIZE).
extern "C" const char* __lsan_default_suppressions() { return "leak:libfontconfig.so\n"; }
