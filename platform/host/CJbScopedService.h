// Installs a replacement for a host service for the lifetime of a scope and puts back whatever was
// installed before, even when the scope is left by an exception.
#pragma once

template <class Service>
class CJbScopedService {
 public:
  explicit CJbScopedService(Service* replacement) : m_previous(Service::Set(replacement)) {}
  ~CJbScopedService() { Service::Set(m_previous); }
  CJbScopedService(const CJbScopedService&) = delete;
  CJbScopedService& operator=(const CJbScopedService&) = delete;

 private:
  Service* m_previous;
};
