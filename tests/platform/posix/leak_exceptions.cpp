// The leak sanitizer asks this function what is no leak of ours. The NTLM mechanism and the library that it
// hashes with keep some memory of each password for good, whatever they are given back, and so does the one
// that loads the mechanism.
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions() {
  return "leak:gssntlmssp.so\nleak:libcrypto.so\nleak:libkrb5support.so\n";
}
