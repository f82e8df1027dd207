#include "korvelfile/data/DataCollectionInterface.h"

#include "korvelfile/outside/base/Ghal.h"

DataCollectionInterface::~DataCollectionInterface() = default;

int DataCollectionInterface::UseCollector() {
  const GeoMutex::ScopedLock lock(collectorMutex_);
  if (userCount_ == kNotLoaded) {
    SetFaultLine(0);
    const int result = ReadCollectorFile();
    if (result != 0) return result;
    userCount_ = 0;
  }
  ++userCount_;
  return 0;
}

int DataCollectionInterface::UnUseCollector() {
  const GeoMutex::ScopedLock lock(collectorMutex_);
  if (userCount_ == kNotLoaded) return 1;
  if (--userCount_ < 0) {
    _GHAL::SystemMessage("DataCollectionInterface::use/unuse collector is unbalanced!");
    userCount_ = kNotLoaded;
    return 1;
  }
  if (userCount_ > 0) return 0;
  if (isDirty_) WriteChanges();
  FreeCollector();
  userCount_ = kNotLoaded;
  return 0;
}

int DataCollectionInterface::WriteChanges() {
  isDirty_ = false;
  _GHAL::SystemMessage("writing changes to file");
  return WriteCollectorFile();
}

bool DataCollectionInterface::IsFreeToInit() const {
  if (userCount_ == kNotLoaded) return true;
  _GHAL::SystemMessage("Can't Init collector because someone is using the collector!");
  return false;
}

int DataCollectionInterface::InitCollector() {
  const GeoMutex::ScopedLock lock(collectorMutex_);
  if (!IsFreeToInit()) return 1;
  CreateCollectorFile();
  return 0;
}

int DataCollectionInterface::InitAndUseCollectorWithoutFuckingDisk() {
  const GeoMutex::ScopedLock lock(collectorMutex_);
  if (!IsFreeToInit()) return 1;
  InitCollectorFileNoDisk();
  userCount_ = 1;
  return 0;
}

int DataCollectionInterface::SaveCollector() {
  const GeoMutex::ScopedLock lock(collectorMutex_);
  return isDirty_ ? WriteChanges() : -1;
}

void DataCollectionInterface::FlagDirty() {
  const GeoMutex::ScopedLock lock(collectorMutex_);
  isDirty_ = true;
}

bool DataCollectionInterface::IsModified() const {
  const GeoMutex::ScopedLock lock(collectorMutex_);
  return isDirty_;
}

int DataCollectionInterface::AutoSave() { return WriteCollectorFile(); }

void DataCollectionInterface::LockData() { collectorMutex_.Lock(); }

void DataCollectionInterface::UnLockData() { collectorMutex_.Unlock(); }
