// The disk below the database library, which can be made to fail: for as long as it lives, whatever the
// library opens is read and written through it.
#pragma once

#include <sqlite3.h>

#include <cstring>

namespace jotlets {

/// What fails, and how.
struct DiskFault {
  enum Call : unsigned { kRead = 1, kWrite = 2, kSync = 4, kTruncate = 8, kDelete = 16, kOpen = 32 };

  const char* name;
  unsigned calls;
  int code;
  bool stays = false;  // with all such calls behind the first one
};

inline constexpr unsigned kAnyChange =
    DiskFault::kWrite | DiskFault::kSync | DiskFault::kTruncate | DiskFault::kDelete | DiskFault::kOpen;
inline constexpr DiskFault kDiskFaults[] = {
    {"write", DiskFault::kWrite, SQLITE_IOERR_WRITE},
    {"writes", DiskFault::kWrite, SQLITE_IOERR_WRITE, true},
    {"full", DiskFault::kWrite, SQLITE_FULL},
    {"full for good", DiskFault::kWrite, SQLITE_FULL, true},
    {"sync", DiskFault::kSync, SQLITE_IOERR_FSYNC},
    {"syncs", DiskFault::kSync, SQLITE_IOERR_FSYNC, true},
    {"truncate", DiskFault::kTruncate, SQLITE_IOERR_TRUNCATE, true},
    {"delete", DiskFault::kDelete, SQLITE_IOERR_DELETE},
    {"deletes", DiskFault::kDelete, SQLITE_IOERR_DELETE, true},
    {"read", DiskFault::kRead, SQLITE_IOERR_READ},
    {"reads", DiskFault::kRead, SQLITE_IOERR_READ, true},
    {"short read", DiskFault::kRead, SQLITE_IOERR_SHORT_READ},
    {"power cut", kAnyChange, SQLITE_IOERR, true},
};

class FaultyDisk {
 public:
  FaultyDisk() : real_(sqlite3_vfs_find(nullptr)), own_(*real_) {
    now_ = this;
    own_.zName = "faulty";
    own_.szOsFile = static_cast<int>(sizeof(File)) + real_->szOsFile;
    own_.xOpen = Open;
    own_.xDelete = Delete;
    sqlite3_vfs_register(&own_, 1);
  }
  ~FaultyDisk() {
    sqlite3_vfs_unregister(&own_);
    sqlite3_vfs_register(real_, 1);
  }
  FaultyDisk(const FaultyDisk&) = delete;
  FaultyDisk& operator=(const FaultyDisk&) = delete;

  /// The call number `at` of those that it is about fails, counted from 0.
  void Arm(const DiskFault& fault, int at) {
    fault_ = &fault;
    left_ = at;
    hit_ = false;
  }
  void Disarm() { fault_ = nullptr; }
  bool WasHit() const { return hit_; }

 private:
  struct File {
    sqlite3_file base;
    sqlite3_file* Real() { return reinterpret_cast<sqlite3_file*>(this + 1); }
  };
  static sqlite3_file* Real(sqlite3_file* file) { return reinterpret_cast<File*>(file)->Real(); }

  bool Fails(DiskFault::Call call) {
    if (fault_ == nullptr || (fault_->calls & call) == 0) return false;
    const bool first = left_-- == 0;
    hit_ = hit_ || first;
    return first || (hit_ && fault_->stays);
  }

  static int Open(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* outFlags) {
    file->pMethods = nullptr;
    const bool makes = (flags & SQLITE_OPEN_MAIN_DB) == 0;
    if (makes && now_->Fails(DiskFault::kOpen)) return SQLITE_CANTOPEN;
    const int opened = now_->real_->xOpen(now_->real_, name, Real(file), flags, outFlags);
    if (opened == SQLITE_OK) file->pMethods = Methods();
    return opened;
  }
  static int Delete(sqlite3_vfs*, const char* name, int) {
    return now_->Fails(DiskFault::kDelete) ? now_->fault_->code : now_->real_->xDelete(now_->real_, name, 0);
  }
  static int Read(sqlite3_file* file, void* bytes, int size, sqlite3_int64 at) {
    if (!now_->Fails(DiskFault::kRead)) return Real(file)->pMethods->xRead(Real(file), bytes, size, at);
    if (now_->fault_->code == SQLITE_IOERR_SHORT_READ) std::memset(bytes, 0, static_cast<std::size_t>(size));
    return now_->fault_->code;
  }
  // What is in the middle of being written is written by half.
  static int Write(sqlite3_file* file, const void* bytes, int size, sqlite3_int64 at) {
    const bool fails = now_->Fails(DiskFault::kWrite);
    const bool half = fails && now_->left_ == -1;
    int written = SQLITE_OK;
    if (!fails || half) written = Real(file)->pMethods->xWrite(Real(file), bytes, half ? size / 2 : size, at);
    return fails ? now_->fault_->code : written;
  }
  static int Truncate(sqlite3_file* file, sqlite3_int64 size) {
    return now_->Fails(DiskFault::kTruncate) ? now_->fault_->code
                                             : Real(file)->pMethods->xTruncate(Real(file), size);
  }
  static int Sync(sqlite3_file*, int) {
    return now_->Fails(DiskFault::kSync) ? now_->fault_->code : SQLITE_OK;
  }

  // Everything else goes through as it is.
  template <auto kMethod, typename... Arguments>
  static int Pass(sqlite3_file* file, Arguments... arguments) {
    return (Real(file)->pMethods->*kMethod)(Real(file), arguments...);
  }
  static const sqlite3_io_methods* Methods() {
    using M = sqlite3_io_methods;
    static const M methods = [] {
      M m{};
      m.iVersion = 2;
      m.xClose = Pass<&M::xClose>;
      m.xRead = Read;
      m.xWrite = Write;
      m.xTruncate = Truncate;
      m.xSync = Sync;
      m.xFileSize = Pass<&M::xFileSize, sqlite3_int64*>;
      m.xLock = Pass<&M::xLock, int>;
      m.xUnlock = Pass<&M::xUnlock, int>;
      m.xCheckReservedLock = Pass<&M::xCheckReservedLock, int*>;
      m.xFileControl = Pass<&M::xFileControl, int, void*>;
      m.xSectorSize = Pass<&M::xSectorSize>;
      m.xDeviceCharacteristics = Pass<&M::xDeviceCharacteristics>;
      m.xShmMap = Pass<&M::xShmMap, int, int, int, void volatile**>;
      m.xShmLock = Pass<&M::xShmLock, int, int, int>;
      m.xShmBarrier = [](sqlite3_file* file) { Real(file)->pMethods->xShmBarrier(Real(file)); };
      m.xShmUnmap = Pass<&M::xShmUnmap, int>;
      return m;
    }();
    return &methods;
  }

  inline static FaultyDisk* now_ = nullptr;
  sqlite3_vfs* real_;
  sqlite3_vfs own_;
  const DiskFault* fault_ = nullptr;
  int left_ = 0;
  bool hit_ = false;
};

}  // namespace jotlets
