// What the fuzz targets share: one scratch program directory per process
// (a copy of the built one, ephemeris linked), a session opened on it, the
// fuzzer's bytes written over one of its files, and a record the readers
// start from.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>

#include "chart/InputFields.h"
#include "shell/Session.h"

namespace kal::fuzz {

// The scratch program directory, made on first use and removed at exit.
const std::filesystem::path& Dir();

// A session opened on Dir(), made on first use.
Session& FuzzSession();

// Writes bytes over a file of Dir() and returns its path.
std::filesystem::path WriteInput(std::string_view name, const uint8_t* data, size_t size);

// Picks of the entries a reader found (records, places, zones) moved into
// the example record's fields: those that pass the input checks must
// calculate, and the first two of an input are calculated with their whole
// page.
class PassingPicks {
  public:
    void Calculate(const InputFields& in, std::string_view what);

  private:
    int calculated_ = 0;
};

// The fields of the shipped example record (12 May 1959, 10:43 A.M., zone 6,
// 75W23, 39N45).
InputFields ExampleInput();

// Stops the run with a message when a property the reader promises fails:
// libFuzzer keeps the input that did it.
[[noreturn]] void Fail(std::string_view what);
inline void Check(bool ok, std::string_view what) {
    if (!ok) Fail(what);
}

} // namespace kal::fuzz
