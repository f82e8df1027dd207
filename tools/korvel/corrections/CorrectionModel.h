#pragma once

#include <memory>
#include <string>

#include "korvelfile/outside/base/Vector3d.h"

class LmvTriadFile;

namespace korvel {

/// Kinds of model files.
enum class ModelKind {
  CorrectionGrid,  ///< corrections on a regular grid, usually .ccg
  GeoidGrid,       ///< heights of the geoid on a regular grid, .grd
  Network,         ///< plane corrections at the points of a network of triangles
};

/// True if the file begins as one of them does.
bool IsModel(const std::string& path);

/// The kind of a file, told by how it begins.
/// @throws InputError if it can't be read, or is none of them
ModelKind FindModelKind(const std::string& path);

/// "a correction grid", "a geoid grid", "a triangulated network".
std::string ModelKindName(ModelKind kind);

/// The verb of the tool whose verbs ask models of this kind: "grid", "geoid", "triad".
std::string ModelKindGroup(ModelKind kind);

/// The rectangle in which a model lies, in its own units.
struct ModelExtent {
  double northMin, northMax, eastMin, eastMax;

  bool Contains(double north, double east) const;
};

/// The network in a file.
/// @throws InputError if it isn't one, or is damaged
std::unique_ptr<LmvTriadFile> OpenTriad(const std::string& path);

/// The rectangle around the points of a network.
ModelExtent ExtentOf(const LmvTriadFile& network);

/// A model file that can be asked for corrections. Coordinates are metres, or latitude and
/// longitude in radians.
class CorrectionModel {
 public:
  /// What a model corrects.
  struct Traits {
    ModelKind kind;
    bool isGeographic;  ///< works in latitude and longitude
    bool hasPlane;
    bool hasHeight;
    bool hasInverse;
  };

  virtual ~CorrectionModel() = default;

  /// Opens the model in a file of any kind.
  /// @throws InputError if that fails
  static std::unique_ptr<CorrectionModel> Open(const std::string& path);

  const Traits& GetTraits() const { return traits_; }

  const ModelExtent& GetExtent() const { return extent_; }

  /// The correction at a place: x goes with north, y with east, z with the height; 0 for what the
  /// model doesn't correct. It is added to a coordinate; that of a geoid grid turns an ellipsoidal
  /// height into an orthometric one.
  /// @return false if there is none
  virtual bool Find(double north, double east, Vector3d& correction) const = 0;

  /// As `Find` for a place that was corrected already: the correction to take off again.
  virtual bool FindInverse(double north, double east, Vector3d& correction) const = 0;

 protected:
  CorrectionModel(const Traits& traits, const ModelExtent& extent)
      : traits_(traits), extent_(extent) {}

 private:
  Traits traits_;
  ModelExtent extent_;
};

}  // namespace korvel
