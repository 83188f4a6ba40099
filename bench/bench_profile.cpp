// The profile engine on settings files of 8 KB, 1 MB and 10 MB, beside its floors measured
// in the same run: reading the file, and reading it plus writing a temporary file and
// renaming it (with and without fsync); and beside inih's bare parse as the peer.
//
// Goals: parse and index at least as fast as inih's bare parse; a cached document lookup
// under 100 ns; setting one key and saving a 1 MB file within twice the floor; a document
// under three times the file's size once every section has been looked up (counter
// "held/file" of BM_ParseAndIndexAll).

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <ini.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <map>
#include <random>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "platform/profile.h"
#include "platform/profile_document.h"
#include "platform/profile_store.h"
#include "platform/scratch_directory.h"
#include "platform/windows_directory.h"

namespace {

namespace fs = std::filesystem;
using wk::platform::ProfileDocument;

struct Sample {
    std::string bytes;
    std::vector<std::pair<std::string, std::string>> probes;  // 300 (section, key) pairs
    // One (section, key) per section, its first key ("" for a section without keys): a
    // lookup of each builds every key index a document keeps.
    std::vector<std::pair<std::string, std::string>> everySection;
    std::string fileName;  // bare name in the prefix
};

// A settings file like the measuring application's, grown to `size` bytes: CRLF lines,
// sections of 10 to 60 keys, comments, blank lines, and Windows-1252 text.
Sample Generate(std::size_t size, const std::string& fileName) {
    Sample sample;
    sample.fileName = fileName;
    std::mt19937 rng(static_cast<unsigned>(size));
    std::vector<std::pair<std::string, std::string>> all;
    std::string& out = sample.bytes;
    out.reserve(size + 256);
    out += "; Settings of the measuring application \xA9 Marvane\r\n\r\n";
    for (int s = 0; out.size() < size; ++s) {
        const std::string section = "SECTION " + std::to_string(s);
        out += "[" + section + "]\r\n";
        sample.everySection.emplace_back(section, "");
        if (rng() % 3 == 0)
            out +=
                "; Einstellungen f\xFCr die Ma\xDF"
                "e \x80\r\n";
        const int keys = 10 + static_cast<int>(rng() % 50);
        for (int k = 0; k < keys && out.size() < size; ++k) {
            const std::string key = "Key Name " + std::to_string(k);
            out += key + "=" + std::to_string(rng() % 100000) +
                   ".25 Gr\xF6\xDF"
                   "e " +
                   std::to_string(rng()) + "\r\n";
            all.emplace_back(section, key);
            if (k == 0) sample.everySection.back().second = key;
            if (rng() % 11 == 0) out += "\r\n";
        }
        out += "\r\n";
    }
    for (std::size_t i = 0; i < 300; ++i) sample.probes.push_back(all[(i * all.size()) / 300]);
    return sample;
}

// The prefix the benchmarks read and write in, in a temporary directory.
class BenchPrefix {
public:
    BenchPrefix() : prefix_("wkestel-bench-") {
        wk::platform::SetWinePrefixOverride(prefix_.Root().string());
    }
    fs::path Path(const std::string& name) const { return prefix_.WindowsDir() / name; }

private:
    wk::platform::ScratchWinePrefix prefix_;
};

BenchPrefix& Prefix() {
    static BenchPrefix prefix;
    return prefix;
}

const Sample& SampleOf(std::int64_t size) {
    static std::map<std::int64_t, Sample> samples;
    auto it = samples.find(size);
    if (it == samples.end()) {
        Sample sample =
            Generate(static_cast<std::size_t>(size), "BENCH" + std::to_string(size) + ".INI");
        std::ofstream(Prefix().Path(sample.fileName), std::ios::binary) << sample.bytes;
        it = samples.emplace(size, std::move(sample)).first;
    }
    return it->second;
}

void SizeArgs(benchmark::internal::Benchmark* b) {
    b->Arg(8 << 10)->Arg(1 << 20)->Arg(10 << 20)->Unit(benchmark::kMicrosecond);
}

// Parsing and indexing (the copy of the bytes included).
void BM_Parse(benchmark::State& state) {
    const Sample& sample = SampleOf(state.range(0));
    std::size_t held = 0;
    for (auto _ : state) {
        ProfileDocument doc(sample.bytes);
        benchmark::DoNotOptimize(doc);
        held = doc.BytesHeld();
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * sample.bytes.size()));
    state.counters["held/file"] =
        static_cast<double>(held) / static_cast<double>(sample.bytes.size());
}
BENCHMARK(BM_Parse)->Apply(SizeArgs);

// Parsing, then one lookup in every section, which builds every key index the document
// keeps: the time of a fully indexed document, and the memory it holds then (the largest a
// document of the file gets without edits).
void BM_ParseAndIndexAll(benchmark::State& state) {
    const Sample& sample = SampleOf(state.range(0));
    std::size_t held = 0;
    for (auto _ : state) {
        ProfileDocument doc(sample.bytes);
        for (const auto& [section, key] : sample.everySection)
            benchmark::DoNotOptimize(doc.Value(section, key));
        held = doc.BytesHeld();
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * sample.bytes.size()));
    state.counters["held/file"] =
        static_cast<double>(held) / static_cast<double>(sample.bytes.size());
    state.counters["sections"] = static_cast<double>(sample.everySection.size());
}
BENCHMARK(BM_ParseAndIndexAll)->Apply(SizeArgs);

int KeepNothing(void*, const char*, const char*, const char*) {
    return 1;
}

void BM_InihBareParse(benchmark::State& state) {
    const Sample& sample = SampleOf(state.range(0));
    for (auto _ : state) {
        benchmark::DoNotOptimize(ini_parse_string(sample.bytes.c_str(), KeepNothing, nullptr));
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * sample.bytes.size()));
}
BENCHMARK(BM_InihBareParse)->Apply(SizeArgs);

// 300 lookups on a parsed document; the time per lookup is the counter "lookup".
void BM_DocumentLookup300(benchmark::State& state) {
    const Sample& sample = SampleOf(state.range(0));
    ProfileDocument doc(sample.bytes);
    for (const auto& [section, key] : sample.probes) doc.Value(section, key);  // indexes built
    for (auto _ : state) {
        for (const auto& [section, key] : sample.probes)
            benchmark::DoNotOptimize(doc.Value(section, key));
    }
    state.counters["lookup"] =
        benchmark::Counter(static_cast<double>(state.iterations() * sample.probes.size()),
                           benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}
BENCHMARK(BM_DocumentLookup300)->Apply(SizeArgs);

// 300 GetPrivateProfileStringA calls on the cached file: name resolution, a stat each, the
// lookup and the copy.
void BM_GetPrivateProfileString300(benchmark::State& state) {
    const Sample& sample = SampleOf(state.range(0));
    char buffer[256];
    for (const auto& [section, key] : sample.probes) {
        wk::GetPrivateProfileStringA(section.c_str(), key.c_str(), "", buffer, sizeof buffer,
                                     sample.fileName.c_str());
    }
    for (auto _ : state) {
        for (const auto& [section, key] : sample.probes) {
            benchmark::DoNotOptimize(wk::GetPrivateProfileStringA(
                section.c_str(), key.c_str(), "", buffer, sizeof buffer, sample.fileName.c_str()));
        }
    }
    state.counters["call"] =
        benchmark::Counter(static_cast<double>(state.iterations() * sample.probes.size()),
                           benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}
BENCHMARK(BM_GetPrivateProfileString300)->Apply(SizeArgs);

// One WritePrivateProfileStringA of a key in the middle of the file: edit, serialise and
// the atomic replace with fsync.
void BM_SetOneKeyAndSave(benchmark::State& state) {
    const Sample& sample = SampleOf(state.range(0));
    const auto& [section, key] = sample.probes[150];
    int n = 0;
    for (auto _ : state) {
        const std::string value = "value " + std::to_string(n++ % 2);
        if (!wk::WritePrivateProfileStringA(section.c_str(), key.c_str(), value.c_str(),
                                            sample.fileName.c_str())) {
            state.SkipWithError(wk::LastProfileError().c_str());
            break;
        }
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * sample.bytes.size()));
}
BENCHMARK(BM_SetOneKeyAndSave)->Apply(SizeArgs);

std::string ReadFile(const fs::path& path) {
    const int fd = ::open(path.c_str(), O_RDONLY);
    std::string bytes(fs::file_size(path), '\0');
    std::size_t done = 0;
    while (done < bytes.size()) {
        const ssize_t n = ::read(fd, bytes.data() + done, bytes.size() - done);
        if (n <= 0) break;
        done += static_cast<std::size_t>(n);
    }
    ::close(fd);
    return bytes;
}

// Floor of a call on a cached file: the stat that checks the file for outside changes.
void BM_FloorStat(benchmark::State& state) {
    const Sample& sample = SampleOf(state.range(0));
    const std::string path = Prefix().Path(sample.fileName).string();
    struct stat st {};
    for (auto _ : state) benchmark::DoNotOptimize(::stat(path.c_str(), &st));
}
BENCHMARK(BM_FloorStat)->Arg(8 << 10)->Unit(benchmark::kNanosecond);

// Floor: reading the file.
void BM_FloorRead(benchmark::State& state) {
    const Sample& sample = SampleOf(state.range(0));
    const fs::path path = Prefix().Path(sample.fileName);
    for (auto _ : state) benchmark::DoNotOptimize(ReadFile(path));
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * sample.bytes.size()));
}
BENCHMARK(BM_FloorRead)->Apply(SizeArgs);

// Floor: reading the file, writing the same bytes to a temporary file and renaming it over
// the original; with fsync (arg 1) as every save does, and without (arg 0).
void BM_FloorReadWriteRename(benchmark::State& state) {
    const Sample& sample = SampleOf(state.range(0));
    const bool sync = state.range(1) != 0;
    const fs::path path = Prefix().Path(sample.fileName);
    const std::string temp = path.string() + ".floor";
    for (auto _ : state) {
        const std::string bytes = ReadFile(path);
        const int fd = ::open(temp.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
        if (::write(fd, bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size())) {
            state.SkipWithError("write failed");
        }
        if (sync) ::fsync(fd);
        ::close(fd);
        std::rename(temp.c_str(), path.c_str());
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * sample.bytes.size()));
}
BENCHMARK(BM_FloorReadWriteRename)
    ->ArgsProduct({{8 << 10, 1 << 20, 10 << 20}, {0, 1}})
    ->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
