// The font library keeps the faces it has looked up for the life of the process, one for each,
// where the leak checker cannot see them. Asked for by the sanitizers' run time alone.
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions() {
  return "leak:libfontconfig\n";
}
