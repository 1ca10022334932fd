// A shared library that is not a module: it exports no entry points.
extern "C" int jbtestNotAModule() {
  return 42;
}
