#include "FuzzSupport.h"

#include <cstdio>
#include <fstream>
#include <memory>

#include "TestSupport.h"
#include "chart/Calc.h"

namespace kal::fuzz {

namespace fs = std::filesystem;

namespace {
test::ScratchAppDir*& Scratch() {
    static test::ScratchAppDir* dir = nullptr;
    return dir;
}
void RemoveScratch() {
    delete Scratch();
    Scratch() = nullptr;
}
} // namespace

const fs::path& Dir() {
    if (!Scratch()) {
        Scratch() = new test::ScratchAppDir();
        std::atexit(RemoveScratch);
    }
    return Scratch()->path();
}

Session& FuzzSession() {
    static Session* session = [] {
        auto* s = new Session();
        s->Open(Dir());
        s->Calculate(ExampleInput());
        return s;
    }();
    return *session;
}

fs::path WriteInput(std::string_view name, const uint8_t* data, size_t size) {
    fs::path file = Dir() / std::string(name);
    std::ofstream out(file, std::ios::binary | std::ios::trunc);
    out.write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
    return file;
}

void PassingPicks::Calculate(const InputFields& in, std::string_view what) {
    if (calculated_ >= 2 || !InputChecks(in, 'P').empty()) return;
    Check(FuzzSession().Calculate(in).calculated, what);
    ++calculated_;
}

InputFields ExampleInput() {
    return *test::FieldsOfRecord("Example,12 May 1959,10.43,A,6,75.23,39.45,me@example.org");
}

void Fail(std::string_view what) {
    std::fprintf(stderr, "property failed: %.*s\n", static_cast<int>(what.size()), what.data());
    std::abort();
}

} // namespace kal::fuzz
