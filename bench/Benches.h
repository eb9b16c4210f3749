#pragma once

#include "bench/Results.h"

#include <filesystem>

namespace rovanta::bench {

class BenchOffice;
class Desk;

std::vector<Result> MeasureTours(const BenchOffice& office, Desk& desk);
std::vector<Result> MeasurePricing(const BenchOffice&, Desk& desk);
std::vector<Result> MeasureDailyPass(const BenchOffice& office, Desk& desk);
std::vector<Result> MeasureBilling(const BenchOffice& office, Desk& desk);
std::vector<Result> MeasureLists(const BenchOffice& office, Desk& desk);
std::vector<Result> MeasureStatements(const BenchOffice& office);
/// Starts the programs that lie in a folder, each as a process of its own.
std::vector<Result> MeasureStart(const BenchOffice& office, const std::filesystem::path& programs);

}
