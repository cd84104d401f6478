// What the libraries lose over damaged input, and the leak checker is to be silent about: the lists
// of a server's description that ends before its grammar does (24 bytes each), and an object header
// that HDF5 takes from its own store and cannot read (some hundred bytes a file).
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions() {
  return "leak:nclistnew\nleak:H5FL__malloc\n";
}

// The tests hold what a program says on standard error against nothing at all.
extern "C" const char* __lsan_default_options();
extern "C" const char* __lsan_default_options() {
  return "print_suppressions=0";
}
