// A scope that holds a slim reader/writer lock exclusively (the server's shared tables may be
// reached from several apartments).
#pragma once

#include <windows.h>

namespace varnex::server {

class ExclusiveLock {
 public:
  explicit ExclusiveLock(SRWLOCK& lock) : lock_(lock) { AcquireSRWLockExclusive(&lock_); }
  ~ExclusiveLock() { ReleaseSRWLockExclusive(&lock_); }
  ExclusiveLock(const ExclusiveLock&) = delete;
  ExclusiveLock& operator=(const ExclusiveLock&) = delete;

 private:
  SRWLOCK& lock_;
};

}  // namespace varnex::server
