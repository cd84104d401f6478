// What the leak checker of a sanitized program that draws asks for. The font library keeps the
// faces it has looked up for the life of the process, and the C library loses the list of folders
// that LOCPATH names; the checker is to be silent about them, because the tests compare what the
// program says word by word.
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions() {
  return "leak:libfontconfig\nleak:argz_add_sep\n";
}

extern "C" const char* __lsan_default_options();
extern "C" const char* __lsan_default_options() {
  return "print_suppressions=0";
}
