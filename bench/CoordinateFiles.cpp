// Reading and writing a million points, against a floor of plain arrays: time and memory.
// Usage: bench_CoordinateFiles [FOLDER]   (default /dev/shm, so that the disk stays out of it)

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include <sys/wait.h>
#include <unistd.h>

#include "korvelfile/coordinates/CoordinateFilesMap.h"
#include "korvelfile/coordinates/PointDataItem.h"
#include "korvelfile/coordinates/PxyCoordinateFile.h"
#include "korvelfile/coordinates/SimpleCoordinateFile.h"
#include "korvelfile/outside/base/Ghal.h"
#include "support/CoordinateFloor.h"
#include "support/Ratio.h"

namespace {

constexpr std::size_t kPoints = 1000000;
constexpr std::size_t kMapFiles = 10;
constexpr int kRounds = 7;

double Millimetres(std::mt19937_64& random, double from, double to) {
  return std::round(std::uniform_real_distribution(from, to)(random) * 1000.0) / 1000.0;
}

// Runs `work` in a process of its own, so that it leaves nothing in the memory of this one.
void Apart(const Work& work) {
  const pid_t child = fork();
  if (child == 0) {
    work();
    std::fflush(stdout);
    _exit(0);
  }
  int status = 0;
  if (waitpid(child, &status, 0) != child || status != 0) std::abort();
}

// Writes `count` points with names of their own and one of few code triples.
void MakeFile(const std::string& path, std::size_t first, std::size_t count) {
  static const char* const codes[] = {"121", "122", "GDN", "TREE", "XSEC", "LPR", "BAR", "CRK"};
  std::mt19937_64 random(first + 1);
  PxyCoordinateFile file(false);
  file.ChooseFile(path.c_str());
  file.InitAndUseCollectorWithoutFuckingDisk();
  for (std::size_t i = first; i < first + count; ++i) {
    const Vector3d position(Millimetres(random, 500000, 540000), Millimetres(random, 6.7e6, 6.8e6),
                            Millimetres(random, 2, 90));
    file.InsertItem(
        new PointDataItem(position, "P" + std::to_string(1000000 + i), codes[i % 8], "", ""), -1);
  }
  file.FlagDirty();
  if (file.SaveCollector() != 0) std::abort();
  file.UnUseCollector();
}

std::unique_ptr<PxyCoordinateFile> Open(const std::string& path, bool readOnly) {
  auto file = std::make_unique<PxyCoordinateFile>(readOnly);
  file->ChooseFile(path.c_str());
  if (file->UseCollector() != 0) std::abort();
  return file;
}

void TimeReading(const std::string& path, const std::string& format,
                 PlainPoints (*floorRead)(const MappedFile&, std::size_t)) {
  PlainPoints plain;
  std::unique_ptr<PxyCoordinateFile> file;
  const Work floor = [&] {
    const MappedFile mapped(path);
    plain = floorRead(mapped, kPoints);
  };
  const Work cleanUp = [&] {
    plain = {};
    file.reset();
  };
  PrintRatio(
      format + " into items", 3.5, kRounds, floor, [&] { file = Open(path, false); }, cleanUp);
  PrintRatio(
      format + " read-only", 1.8, kRounds, floor, [&] { file = Open(path, true); }, cleanUp);
}

void TimeWriting(const std::string& path, const std::string& format,
                 PlainPoints (*floorRead)(const MappedFile&, std::size_t),
                 void (*floorWrite)(const std::string&, const PlainPoints&)) {
  const MappedFile mapped(path);
  const PlainPoints plain = floorRead(mapped, kPoints);
  const auto file = Open(path, false);
  const std::string floorPath = path + ".floor";
  PrintRatio(
      format + " written", 1.5, kRounds, [&] { floorWrite(floorPath, plain); },
      [&] {
        if (file->AutoSave() != 0) std::abort();
      });
  std::filesystem::remove(floorPath);
}

void PrintMemory(const std::string& path, const std::string& what, bool readOnly, double bar) {
  const double before = ResidentBytes();
  const auto file = Open(path, readOnly);
  const double bytes = (ResidentBytes() - before) / static_cast<double>(kPoints);
  std::printf("%-44s %.1f bytes a point  bar %.0f  %s\n", what.c_str(), bytes, bar,
              bytes <= bar ? "ok" : "ABOVE");
}

void TimeMap(const std::string& folder) {
  std::vector<std::string> names;
  for (std::size_t i = 0; i < kMapFiles; ++i) {
    names.push_back("part" + std::to_string(i) + ".geo");
    Apart([&] { MakeFile(folder + names.back(), i * kPoints / kMapFiles, kPoints / kMapFiles); });
  }
  std::vector<std::unique_ptr<PxyCoordinateFile>> files;
  std::unique_ptr<CoordinateFilesMap> map;
  const Work floor = [&] {
    for (const auto& name : names) files.push_back(Open(folder + name, false));
  };
  const Work load = [&] {
    map = std::make_unique<CoordinateFilesMap>();
    if (map->LoadFiles(names, {folder.begin(), folder.end()}) != CoordinateFilesMap::NamesKept) {
      std::abort();
    }
  };
  PrintRatio("map over ten files, against reading them", 2.0, kRounds, floor, load, [&] {
    files.clear();
    map.reset();
  });
}

}  // namespace

int main(int argc, char** argv) {
  _GHAL::SetMessageSink([](Korvel::LogLevel, std::string_view) {});
  const std::string folder = std::string(argc > 1 ? argv[1] : "/dev/shm") + "/korvelfile-bench/";
  std::filesystem::create_directories(folder);
  const std::string geo = folder + "points.geo";
  const std::string pxy = folder + "points.pxy";
  Apart([&] {
    MakeFile(geo, 0, kPoints);
    MakeFile(pxy, 0, kPoints);
  });
  Apart([&] { PrintMemory(geo, "memory of a point read-only", true, 100); });
  Apart([&] { PrintMemory(geo, "memory of a loaded point", false, 260); });
  TimeReading(geo, ".geo", ReadGeoFloor);
  TimeReading(pxy, ".pxy", ReadPxyFloor);
  TimeWriting(geo, ".geo", ReadGeoFloor, WriteGeoFloor);
  TimeWriting(pxy, ".pxy", ReadPxyFloor, WritePxyFloor);
  TimeMap(folder);
  std::filesystem::remove_all(folder);
}
