// A library that is no effect at all.
extern "C" __attribute__((visibility("default"))) int SomethingElse();
extern "C" int SomethingElse() {
  return 1;
}
