// ReadAll and WriteAll of the settings record, beside two floors measured in the same run, the
// same file operations done by hand on the same three files (the backup, WZELKO.INI and
// WZELKO32.INI), each read and written whole:
//   - each file safely by itself: every file written to a temporary file, flushed, renamed
//     over the original, and the directory flushed once so that the renames are on the disk
//     (four flushes). What any program must do so that no file is ever torn.
//   - all or nothing: the least a program must add so that the three are replaced as one: a
//     commit record listing them, flushed, with the directory, before the first rename, and
//     the directory flushed again before the record goes (six flushes). The settings record's
//     save gives this guarantee, so this is the honest floor of its operation.
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

// A new file with `bytes`, flushed to the disk.
void WriteFlushed(const fs::path& path, const std::string& bytes) {
    const int fd = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
    if (fd < 0) throw std::runtime_error("cannot write " + path.string());
    const bool written =
        ::write(fd, bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size());
    const bool flushed = ::fsync(fd) == 0;
    ::close(fd);
    if (!written || !flushed) throw std::runtime_error("cannot write " + path.string());
}

// Renames and new names in a directory are on the disk once the directory is flushed.
void FlushDirectory(const fs::path& dir) {
    const int fd = ::open(dir.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd < 0) throw std::runtime_error("cannot open " + dir.string());
    ::fsync(fd);
    ::close(fd);
}

// The three files of a save, read, with one byte changed in each settings file (the change
// the record's save makes) and the backup made from WZELKO.INI as it was.
struct SaveFiles {
    std::string backup, wzelko, wzelko32;
};

SaveFiles ReadForSave(const fs::path& dir, int& toggle) {
    SaveFiles files{{}, ReadBytes(dir / "WZELKO.INI"), ReadBytes(dir / "WZELKO32.INI")};
    files.backup = files.wzelko + '\xFF';
    files.wzelko[files.wzelko.size() - 3] = (toggle & 1) ? '1' : '2';
    files.wzelko32[files.wzelko32.size() - 3] = (toggle & 1) ? '1' : '2';
    ++toggle;
    return files;
}

const char* const kSaveNames[] = {"WZELKO.BAK", "WZELKO.INI", "WZELKO32.INI"};

void WriteTemporaries(const fs::path& dir, const SaveFiles& files) {
    WriteFlushed(dir / ".WZELKO.BAK.tmp", files.backup);
    WriteFlushed(dir / ".WZELKO.INI.tmp", files.wzelko);
    WriteFlushed(dir / ".WZELKO32.INI.tmp", files.wzelko32);
}

void RenameTemporaries(const fs::path& dir) {
    for (const char* name : kSaveNames)
        fs::rename(dir / (std::string(".") + name + ".tmp"), dir / name);
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

// Each file safely by itself: temporary files flushed and renamed, the directory flushed.
void BM_FloorEachFile(benchmark::State& state) {
    BenchPrefix prefix(state.range(0) != 0);
    const fs::path dir = prefix.WindowsDir();
    int toggle = 0;
    for (auto _ : state) {
        const SaveFiles files = ReadForSave(dir, toggle);
        WriteTemporaries(dir, files);
        RenameTemporaries(dir);
        FlushDirectory(dir);
    }
    state.counters["ini_bytes"] = static_cast<double>(prefix.IniBytes());
}

// All or nothing: the same, with a flushed commit record that decides the set before the first
// rename and goes once the renames are on the disk.
void BM_FloorAllOrNothing(benchmark::State& state) {
    BenchPrefix prefix(state.range(0) != 0);
    const fs::path dir = prefix.WindowsDir();
    int toggle = 0;
    for (auto _ : state) {
        const SaveFiles files = ReadForSave(dir, toggle);
        WriteTemporaries(dir, files);
        std::string record;
        for (const char* name : kSaveNames) record += std::string(name) + '\n';
        WriteFlushed(dir / ".commit", record);
        FlushDirectory(dir);
        RenameTemporaries(dir);
        FlushDirectory(dir);
        fs::remove(dir / ".commit");
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

BENCHMARK(BM_FloorEachFile)->Apply(Machines);
BENCHMARK(BM_FloorAllOrNothing)->Apply(Machines);
BENCHMARK(BM_ReadAllWriteAll)->Apply(Machines);
BENCHMARK(BM_WriteAll)->Apply(Machines);
BENCHMARK(BM_ReadAllWarm)->Apply(Machines);
BENCHMARK(BM_ReadAllCold)->Apply(Machines);
BENCHMARK(BM_ReadKeyByKey)->Apply(Machines);

}  // namespace

BENCHMARK_MAIN();
