#pragma once

#include <cstdint>
#include <string>

#include "korvelfile/Export.h"
#include "korvelfile/data/DataItem.h"
#include "korvelfile/data/DataItemListObject.h"
#include "korvelfile/data/Streamable.h"
#include "korvelfile/outside/base/Undefined.h"

/// One reading of a levelling job. All lengths are metres, undefined where there is none.
///
/// Name and code are wide in memory and UTF-8 in the file; bytes of a file that are no UTF-8 come
/// back as they were, see `Widen`.
class KORVELFILE_EXPORT LevRecordItem : public DataItem<LevRecordItem>,
                                        public DataItemListObject,
                                        public Streamable {
 public:
  /// The kind of a reading. Its values are the application's; a file holds their lowest 8 bits.
  enum LevType : std::int32_t {};

  LevRecordItem() = default;
  LevRecordItem(const LevRecordItem& other) = default;
  LevRecordItem(LevRecordItem&& other) = default;
  LevRecordItem& operator=(const LevRecordItem& other) = default;
  LevRecordItem& operator=(LevRecordItem&& other) = default;
  ~LevRecordItem() override = default;

  /// The name of the point on which the staff stood.
  std::wstring GetPointName() const { return pointName_; }
  void SetPointName(const std::wstring& name) { pointName_ = name; }

  /// What the reading is, in the application's own numbers.
  LevType GetLevType() const { return levType_; }
  void SetLevType(LevType type) { levType_ = type; }

  /// The staff reading backwards, to the point whose height is known.
  double GetBackwards() const { return backwards_; }
  void SetBackwards(double reading) { backwards_ = reading; }

  /// The staff reading forwards.
  double GetForwards() const { return forwards_; }
  void SetForwards(double reading) { forwards_ = reading; }

  /// The height of the point.
  double GetHeight() const { return height_; }
  void SetHeight(double height) { height_ = height; }

  /// The length of the sight.
  double GetDist() const { return dist_; }
  void SetDist(double distance) { dist_ = distance; }

  /// The point code.
  std::wstring GetCode() const { return code_; }
  void SetCode(const std::wstring& code) { code_ = code; }

  /// 0: the row has had the same fields in all versions.
  int GetVersion() const override { return 0; }

  /// The fields of the row, in file order, which has the distance before the height.
  void Stream(DataStream& stream, int version) override;

 private:
  std::wstring pointName_;
  LevType levType_{};
  double backwards_ = kUndefined;
  double forwards_ = kUndefined;
  double height_ = kUndefined;
  double dist_ = kUndefined;
  std::wstring code_;
};
