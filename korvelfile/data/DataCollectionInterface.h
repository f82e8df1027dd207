#pragma once

#include "korvelfile/Export.h"
#include "korvelfile/data/DataItemListObject.h"
#include "korvelfile/outside/base/GeoMutex.h"

/// A list that fills itself from a file and writes itself back.
///
/// A caller names the file, calls `UseCollector`, works on the items, calls `FlagDirty` and
/// `UnUseCollector`. The first user in reads, the last one out writes and frees; item pointers live
/// in between. Destroying a collector doesn't write it.
///
/// Unless it says otherwise an operation holds the collector's recursive mutex, which is taken
/// before that of any list.
class KORVELFILE_EXPORT DataCollectionInterface : public DataItemListObject {
 public:
  DataCollectionInterface() = default;
  ~DataCollectionInterface() override;

  /// Becomes a user; reads the file if there is none yet.
  /// @return 0, or the error of the read, after which the collector isn't loaded
  int UseCollector();

  /// Stops being a user. The last one out writes what is dirty, and frees the items even if the
  /// write failed: a caller that must know calls `SaveCollector` before.
  /// @return 0, or 1 without a matching `UseCollector`
  int UnUseCollector();

  /// Creates a new file with its default items; the collector stays not loaded.
  /// @return 0 whatever the write gave, or 1 if somebody uses the collector
  int InitCollector();

  /// Starts an empty collector with one user, in memory alone.
  /// @return 0, or 1 if somebody uses the collector
  int InitAndUseCollectorWithoutFuckingDisk();

  /// Writes now if dirty. The flag is cleared before, so that a failed write leaves it cleared.
  /// @return the result of the write, or -1 if nothing was dirty
  int SaveCollector();

  /// Tells the collector that an item was changed.
  void FlagDirty();

  bool IsModified() const;

  /// Writes whether dirty or not, and leaves the flag. Takes no mutex of its own.
  int AutoSave();

  /// Take and give back the collector's mutex. May be nested.
  void LockData();
  void UnLockData();

  /// Line of the file at which the last failed read stopped, from 1; 0 if it wasn't in a line.
  int GetFaultLine() const { return faultLine_; }

 protected:
  void SetFaultLine(int line) { faultLine_ = line; }

  /// For a writer that clears the flag by itself; it holds the collector's mutex.
  void ClearDirty() { isDirty_ = false; }

 private:
  friend class ScopedDataCollectionLock;

  virtual int InitCollectorFileNoDisk() = 0;
  virtual int ReadCollectorFile() = 0;
  virtual int WriteCollectorFile() = 0;
  virtual int CreateCollectorFile() = 0;
  virtual void FreeCollector() = 0;

  int WriteChanges();
  bool IsFreeToInit() const;

  static constexpr int kNotLoaded = -10;

  bool isDirty_ = false;
  int userCount_ = kNotLoaded;
  int faultLine_ = 0;
  mutable GeoMutex collectorMutex_;
};

/// Holds the collector's mutex for the life of a scope.
class ScopedDataCollectionLock {
 public:
  explicit ScopedDataCollectionLock(DataCollectionInterface& collection)
      : lock_(collection.collectorMutex_) {}

 private:
  GeoMutex::ScopedLock lock_;
};
