// jbcb's own copy of the customizable-block classes (core, parameters, actions, storage),
// registered for the life of the object and removed in reverse order. The commands that author,
// inspect or edit customizable blocks call into those classes directly, so they run with this
// copy instead of the loaded module: the two must never be registered at the same time.
#pragma once

class CustomBlockClasses {
 public:
  CustomBlockClasses();
  ~CustomBlockClasses();
  CustomBlockClasses(const CustomBlockClasses&) = delete;
  CustomBlockClasses& operator=(const CustomBlockClasses&) = delete;
};
