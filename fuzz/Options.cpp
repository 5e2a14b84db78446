// The object runtime keeps its tables to the end of the process: they are no leaks to report.
extern "C" const char* __asan_default_options() { return "detect_leaks=0"; }
