#pragma once

#include "korvelfile/Export.h"

/// Through this a viewer asks what kind of thing it has got.
class KORVELFILE_EXPORT GraphicsObjectInterface {
 public:
  virtual ~GraphicsObjectInterface();

  /// The object itself.
  virtual void* GetGraphicsObject() = 0;

  /// 0 a coordinate file, 1 a line, 2 a profile, 3 a camber file, 4 a measurement file, 11 an
  /// `.llc` file, 13 a set of files, 20 a file in a compact store.
  virtual int GetProxyType() = 0;

  virtual bool IsForReadOnly() = 0;
};
