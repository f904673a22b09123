// Holds the tests' precompiled headers; it does nothing itself.
int main() {
  return 0;
}
