// One entry of an ordered class list: how to register a class and how to remove it again. Lists
// of these are walked forwards to register, parents first, and backwards to remove.
#pragma once

struct OdRxClassRegistration {
  void (*init)();
  void (*uninit)();
};

template <class T>
constexpr OdRxClassRegistration odrxClassRegistration() {
  return {&T::rxInit, &T::rxUninit};
}
