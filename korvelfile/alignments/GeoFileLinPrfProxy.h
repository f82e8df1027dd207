#pragma once

#include <memory>
#include <string>

#include "korvelfile/Export.h"
#include "korvelfile/outside/model/Proxies.h"

namespace File {

namespace detail {
class GeoConverter;
}

/// The points of a coordinate file as a line and a profile.
///
/// Each point is a node. A point with the special code "R" and a radius as its remark begins an arc
/// to the next one, if there is such an arc; all other steps are straight. Chainages begin at 0.
/// Copies share the points, which stay in memory as long as one of them or of the profiles lives.
/// One thread at a time.
class KORVELFILE_EXPORT GeoFileLinPrfProxy : public Model::ILineFileProxy {
 public:
  /// Which points make the line.
  enum class UsePointsAs : int {
    PointsAndLines = 0,  ///< all free points, and then those of every line: a point may come twice
    Points = 1,          ///< all free points
    Line = 2,            ///< the points of one line
  };

  /// The heights of the points as a profile of straight grades.
  class KORVELFILE_EXPORT GeoPrfProxy : public Model::IProfileFileProxy {
   public:
    ~GeoPrfProxy() override;

   private:
    friend class GeoFileLinPrfProxy;
    explicit GeoPrfProxy(std::shared_ptr<const detail::GeoConverter> nodes);

    int GetElementCount() const override;
    /// All zero without a node `index`. Between nodes of equal chainage the slope is what the
    /// division gives, infinite or not a number.
    Model::Proxy::ProfileElement GetAt(int index) const override;

    std::shared_ptr<const detail::GeoConverter> nodes_;
  };

  /// Reads a coordinate file.
  ///
  /// @param lineIndex  number of the line, from 0, for `UsePointsAs::Line`; without such a line
  ///                   there are no nodes
  /// @throws std::runtime_error "Open file failed", if the file can't be read
  GeoFileLinPrfProxy(const std::wstring& fileName, UsePointsAs use, int lineIndex);
  ~GeoFileLinPrfProxy() override;

  /// The profile of the same points.
  std::shared_ptr<GeoPrfProxy> GetProfileFileProxy() const;

 private:
  int GetElementCount() const override;
  /// All zero without a node `index`.
  Model::Proxy::LineElement GetAt(int index) const override;

  std::shared_ptr<const detail::GeoConverter> nodes_;
};

}  // namespace File
