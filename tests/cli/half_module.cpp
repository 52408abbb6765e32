// A library that exports only one of the two entry points.
extern "C" __attribute__((visibility("default"))) int EffectMain() {
  return 0;
}
