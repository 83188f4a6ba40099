// ReadAll and WriteAll of the settings record, beside the floor measured in the same run:
// what any program must do to save these files safely (read each file, copy the backup,
// write each file to a temporary file, flush it to disk, rename it over the original).
//
// Two machines: the demo machine's files, and the same WZELKO.INI padded to 1 MB with
// sections the editor does not know (placed before the real ones, the worst place for a
// lookup). Each save changes one key in each file, as a Save after an edit does, so that
// both files are really replaced.

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>
#include <stdexcept>
#include <string>

#include "platform/scratch_directory.h"
#include "platform/windows_directory.h"
#include "settings/controller_type.h"
#include "settings/setup_settings.h"

#ifndef WKESTEL_DEMO_PREFIX_DIR
#error "WKESTEL_DEMO_PREFIX_DIR must name demo/prefix"
#endif

namespace {

namespace fs = std::filesystem;

std::string ReadBytes(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

void WriteBytes(const fs::path& path, const std::string& bytes) {
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out << bytes;
}

// The same durable replace the profile engine makes: temporary file, fsync, rename.
void ReplaceDurably(const fs::path& path, const std::string& bytes) {
    const fs::path temp = path.string() + ".tmp";
    std::FILE* file = std::fopen(temp.c_str(), "wb");
    if (file == nullptr) throw std::runtime_error("cannot write " + temp.string());
    std::fwrite(bytes.data(), 1, bytes.size(), file);
    std::fflush(file);
    ::fsync(::fileno(file));
    std::fclose(file);
    fs::rename(temp, path);
}

std::string Padding(std::size_t targetBytes) {
    std::string text = "; sections of other programs sharing the file\r\n";
    for (int n = 0; text.size() < targetBytes; ++n) {
        text += "[OTHER PROGRAM " + std::to_string(n) + "]\r\n";
        for (int k = 0; k < 8; ++k) {
            text += "Setting" + std::to_string(k) + "=value of setting " + std::to_string(k) +
                    " in section " + std::to_string(n) + "\r\n";
        }
    }
    return text;
}

class BenchPrefix {
public:
    explicit BenchPrefix(bool padded) : prefix_("wkestel-bench-") {
        const fs::path demo = fs::path(WKESTEL_DEMO_PREFIX_DIR) / "drive_c" / "windows";
        std::string wzelko = ReadBytes(demo / "WZELKO.INI");
        if (padded) wzelko = Padding(1024 * 1024 - wzelko.size()) + wzelko;
        WriteBytes(WindowsDir() / "WZELKO.INI", wzelko);
        WriteBytes(WindowsDir() / "WZELKO32.INI", ReadBytes(demo / "WZELKO32.INI"));
        wk::platform::SetWinePrefixOverride(prefix_.Root().string());
    }
    ~BenchPrefix() { wk::platform::SetWinePrefixOverride(""); }
    fs::path WindowsDir() const { return prefix_.WindowsDir(); }
    std::uintmax_t IniBytes() const { return fs::file_size(WindowsDir() / "WZELKO.INI"); }

private:
    wk::platform::ScratchWinePrefix prefix_;
};

std::unique_ptr<wk::SetupSettings> NewRecord() {
    return std::make_unique<wk::SetupSettings>(
        wk::ControllerFlagsFromType(wk::ReadControllerType()));
}

// One edit in each file, so that a save really replaces both.
void Edit(wk::SetupSettings& record) {
    record.OffsetX = record.OffsetX == 0.0 ? 1.5 : 0.0;
    record.ThermalCompens = !record.ThermalCompens;
}

void BM_Floor(benchmark::State& state) {
    BenchPrefix prefix(state.range(0) != 0);
    const fs::path dir = prefix.WindowsDir();
    int toggle = 0;
    for (auto _ : state) {
        std::string wzelko = ReadBytes(dir / "WZELKO.INI");
        std::string wzelko32 = ReadBytes(dir / "WZELKO32.INI");
        WriteBytes(dir / "WZELKO.BAK", wzelko);
        // The same one-byte-per-file change the record's save makes, kept in place.
        wzelko[wzelko.size() - 3] = (toggle & 1) ? '1' : '2';
        wzelko32[wzelko32.size() - 3] = (toggle & 1) ? '1' : '2';
        ++toggle;
        ReplaceDurably(dir / "WZELKO.INI", wzelko);
        ReplaceDurably(dir / "WZELKO32.INI", wzelko32);
    }
    state.counters["ini_bytes"] = static_cast<double>(prefix.IniBytes());
}

void BM_ReadAllWriteAll(benchmark::State& state) {
    BenchPrefix prefix(state.range(0) != 0);
    auto record = NewRecord();
    for (auto _ : state) {
        record->ReadAll();
        Edit(*record);
        if (!record->WriteAll()) state.SkipWithError("WriteAll failed");
    }
    state.counters["ini_bytes"] = static_cast<double>(prefix.IniBytes());
}

void BM_WriteAll(benchmark::State& state) {
    BenchPrefix prefix(state.range(0) != 0);
    auto record = NewRecord();
    record->ReadAll();
    for (auto _ : state) {
        Edit(*record);
        if (!record->WriteAll()) state.SkipWithError("WriteAll failed");
    }
}

// ReadAll of files the engine has already parsed and that did not change on disk.
void BM_ReadAllWarm(benchmark::State& state) {
    BenchPrefix prefix(state.range(0) != 0);
    auto record = NewRecord();
    record->ReadAll();
    for (auto _ : state) record->ReadAll();
}

// ReadAll right after another program rewrote the files: every file is parsed afresh.
void BM_ReadAllCold(benchmark::State& state) {
    BenchPrefix prefix(state.range(0) != 0);
    auto record = NewRecord();
    const fs::path dir = prefix.WindowsDir();
    const std::string wzelko = ReadBytes(dir / "WZELKO.INI");
    const std::string wzelko32 = ReadBytes(dir / "WZELKO32.INI");
    int toggle = 0;
    for (auto _ : state) {
        state.PauseTiming();
        // Same size, different content: a change on disk the engine must notice.
        std::string changed = wzelko;
        changed[changed.size() - 3] = (toggle++ & 1) ? '1' : '2';
        WriteBytes(dir / "WZELKO.INI", changed);
        WriteBytes(dir / "WZELKO32.INI", wzelko32);
        state.ResumeTiming();
        record->ReadAll();
    }
}

// The chain's reads one by one, outside a batch: every key checks its file on disk. This is
// what ReadAll's own batch saves.
void BM_ReadKeyByKey(benchmark::State& state) {
    BenchPrefix prefix(state.range(0) != 0);
    auto record = NewRecord();
    record->ReadAll();
    for (auto _ : state) record->Read();
}

void Machines(benchmark::internal::Benchmark* b) {
    b->ArgName("padded_1MB")->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);
}

BENCHMARK(BM_Floor)->Apply(Machines);
BENCHMARK(BM_ReadAllWriteAll)->Apply(Machines);
BENCHMARK(BM_WriteAll)->Apply(Machines);
BENCHMARK(BM_ReadAllWarm)->Apply(Machines);
BENCHMARK(BM_ReadAllCold)->Apply(Machines);
BENCHMARK(BM_ReadKeyByKey)->Apply(Machines);

}  // namespace

BENCHMARK_MAIN();
