// A free station with six full backsights against the Newmat operations that it can't do without.
//
// The floor solves the very equations of the library, linearised beforehand at the positions that
// the library passes through: the same matrices, as often, and nothing else. The library reduces
// the observations, finds the first position, sets the equations up and reports besides.

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdio>
#include <string>
#include <vector>

#include <newmat.h>

#include "korvelfile/measurements/FreeStn.h"
#include "korvelfile/measurements/FreeStnResult.h"
#include "korvelfile/measurements/RecordDataItem.h"
#include "korvelfile/measurements/StationDataItem.h"
#include "support/Ratio.h"

namespace {

constexpr int kBacksights = 6;
constexpr int kObservations = 2 * kBacksights;
constexpr int kUnknowns = 3;
constexpr double kWantedRatio = 1.3;

struct Job {
  StationDataItem station;
  std::vector<RecordDataItem> records;
  std::vector<Vector3d> points;  // E, N, H
};

Job MakeJob() {
  const Vector3d at(4310.25, 7922.5, 31.2);
  Job job;
  job.station.InstrumentHeight = 1.6;
  for (int i = 0; i < kBacksights; ++i) {
    const double azimuth = 0.4 + 0.97 * i;
    const double distance = 60.0 + 35.0 * i;
    const double noise = i % 2 == 0 ? 0.002 : -0.003;
    RecordDataItem record;
    record.SetName("BS" + std::to_string(100 + i));
    record.Distance = distance + noise;
    record.HorAngle = azimuth - 1.1 + noise / distance;
    record.Vertical = 1.55;
    record.TargetHeight = 1.7;
    job.records.push_back(record);
    const double horizontal = distance * std::sin(record.Vertical);
    job.points.emplace_back(at.x + horizontal * std::sin(azimuth),
                            at.y + horizontal * std::cos(azimuth), at.z + 0.02 * distance);
  }
  return job;
}

FreeStn AddAll(const Job& job) {
  FreeStn station;
  for (std::size_t i = 0; i < job.records.size(); ++i)
    station.AddBacksight(job.station, job.records[i], job.points[i], 0.0);
  return station;
}

double AdjustByLibrary(const Job& job) {
  FreeStn station = AddAll(job);
  FreeStnResult result;
  return station.CalcPlane(result) ? result.StdDev : -1.0;
}

// One linearised state of the adjustment.
struct Step {
  std::array<double, kObservations * kUnknowns> A;
  std::array<double, kObservations> l;
};

struct Equations {
  std::array<double, kObservations> weights;
  std::vector<Step> steps;
};

Step Linearise(const FreeStn& station, const Vector& at, double orientation) {
  Step step{};
  for (int i = 0; i < kBacksights; ++i) {
    const CBacksight& b = station.Backsights[static_cast<std::size_t>(i)];
    const double dN = b.Given.x - at.x;
    const double dE = b.Given.y - at.y;
    const double D = std::hypot(dN, dE);
    double* const row = &step.A[static_cast<std::size_t>(2 * i * kUnknowns)];
    row[0] = -dN / D;
    row[1] = -dE / D;
    row[3] = dE / (D * D);
    row[4] = -dN / (D * D);
    row[5] = -1.0;
    double* const l = &step.l[static_cast<std::size_t>(2 * i)];
    l[0] = b.Distance - D;
    l[1] = std::remainder(b.Angle + orientation - std::atan2(dE, dN), 2.0 * std::acos(-1.0));
  }
  return step;
}

std::array<double, kObservations> Weights(const FreeStn& s, const Vector& at) {
  std::array<double, kObservations> weights{};
  for (std::size_t i = 0; i < kBacksights; ++i) {
    const double D = at.GetDistance(s.Backsights[i].Given.GetXY());
    const double distance = s.DistanceError + s.DistancePpm * 1e-6 * D;
    const double centring = s.CentringError * s.CentringError / 2.0;
    weights[2 * i] = 1.0 / (distance * distance + centring);
    weights[2 * i + 1] = 1.0 / (2.0 * s.AngleError * s.AngleError + centring / (D * D));
  }
  return weights;
}

// The matrices of one adjustment, worked as the library works them.
struct Floor {
  NEWMAT::Matrix A{kObservations, kUnknowns};
  NEWMAT::ColumnVector l{kObservations};
  NEWMAT::SymmetricBandMatrix P{kObservations, 1};
  NEWMAT::Matrix Q;
  NEWMAT::ColumnVector x;

  void SetWeights(const Equations& equations) {
    P = 0.0;
    for (int i = 0; i < kObservations; ++i)
      P.element(i, i) = equations.weights[static_cast<std::size_t>(i)];
  }

  void Solve(const Step& step) {
    l << step.l.data();
    A << step.A.data();
    const NEWMAT::Matrix AtP = A.t() * P;
    Q = (AtP * A).i();
    x = Q * (AtP * l);
  }

  double StdDev() const {
    const NEWMAT::ColumnVector v = A * x - l;
    return std::sqrt((v.t() * P * v).AsScalar() / (kObservations - kUnknowns));
  }
};

bool HasConverged(const NEWMAT::ColumnVector& x) { return !(x.MaximumAbsoluteValue() > 1e-9); }

Equations LineariseAll(const Job& job) {
  const FreeStn station = AddAll(job);
  const CBacksight& first = station.Backsights[0];
  const CBacksight& second = station.Backsights[1];
  Vector at;
  at.MeasBinding(first.Given.GetXY(), first.Distance, second.Given.GetXY(), second.Distance);
  double orientation = at.GetDirection(first.Given.GetXY()) - first.Angle;

  Equations equations{Weights(station, at), {}};
  Floor floor;
  floor.SetWeights(equations);
  do {
    equations.steps.push_back(Linearise(station, at, orientation));
    floor.Solve(equations.steps.back());
    at += Vector(floor.x.element(0), floor.x.element(1));
    orientation += floor.x.element(2);
  } while (!HasConverged(floor.x));
  return equations;
}

double AdjustByFloor(const Equations& equations) {
  Floor floor;
  floor.SetWeights(equations);
  for (std::size_t i = 0; i < equations.steps.size(); ++i) {
    if (i > 0 && HasConverged(floor.x)) break;
    floor.Solve(equations.steps[i]);
  }
  return floor.StdDev();
}

constexpr int kCalls = 1000;

template <class Call>
Work Repeated(Call call) {
  return [call] {
    double sum = 0.0;
    for (int i = 0; i < kCalls; ++i) sum += call();
    Keep(sum);
  };
}

}  // namespace

int main() {
  const Job job = MakeJob();
  const Equations equations = LineariseAll(job);
  const double difference = AdjustByLibrary(job) - AdjustByFloor(equations);
  if (!(std::fabs(difference) < 1e-9)) {
    std::printf("floor and library differ by %g in the unit weight\n", difference);
    return 1;
  }
  PrintRatio("1000 free stations, six full backsights", kWantedRatio, 200,
             Repeated([&] { return AdjustByFloor(equations); }),
             Repeated([&] { return AdjustByLibrary(job); }));
  return 0;
}
