// Loading a zone file of 3,000 cities, beside what libxml2 needs to walk through the same file; and looking an item up
// by its name among more and more others.
#include <benchmark/benchmark.h>
#include <libxml/xmlreader.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "platform/base/DictionaryReader.h"
#include "platform/base/DictionaryWriter.h"

namespace {

constexpr int kProvinces = 30;
constexpr int kCitiesOfEach = 100;

std::string Number(int value) {
    return std::to_string(value);
}

// A tree as the editor of zones makes it.
std::unique_ptr<QcDtDictionary> MakeZones() {
    auto root = std::make_unique<QcDtDictionary>(L"ORVO_ZONEDATA");
    for (int p = 0; p < kProvinces; ++p) {
        QcDtDictionary* const province = root->FindOrAddDict(FromUtf8("省份" + Number(p)));
        province->SetAttributeValue(L"type", L"PROVINCE");
        for (int c = 0; c < kCitiesOfEach; ++c) {
            QcDtDictItem* const city = province->FindOrAddItem(FromUtf8("城市" + Number(p * 1000 + c)), QcDtKindString);
            city->SetAttributeValue(L"type", L"CITY");
            city->SetAttributeValue(L"longitude", FromUtf8("  " + Number(100 + p) + "." + Number(1000000000 + c)));
            city->SetAttributeValue(L"latitude", FromUtf8("   " + Number(20 + p) + "." + Number(1000000000 + c)));
        }
    }
    return root;
}

const std::string& ZoneFile() {
    static const std::string bytes = [] {
        std::string written;
        if (!DictionaryWriter::Write(*MakeZones(), written))
            std::abort();
        return written;
    }();
    return bytes;
}

// libxml2's streaming reader alone: every node and every attribute is visited, nothing is kept.
int WalkWithLibxml2() {
    const std::string& bytes = ZoneFile();
    xmlTextReader* const reader =
        xmlReaderForMemory(bytes.data(), static_cast<int>(bytes.size()), nullptr, nullptr, XML_PARSE_NONET);
    int nodes = 0;
    while (xmlTextReaderRead(reader) == 1) {
        ++nodes;
        while (xmlTextReaderMoveToNextAttribute(reader) == 1)
            benchmark::DoNotOptimize(xmlTextReaderConstValue(reader));
    }
    xmlFreeTextReader(reader);
    return nodes;
}

int LoadDictionary() {
    QcDtDictionary dictionary;
    if (!DictionaryReader(dictionary).ReadBytes(ZoneFile()))
        std::abort();
    return dictionary.GetCount();
}

void Libxml2Alone(benchmark::State& state) {
    for (auto _ : state)
        benchmark::DoNotOptimize(WalkWithLibxml2());
}
BENCHMARK(Libxml2Alone)->Unit(benchmark::kMillisecond);

void LoadZones(benchmark::State& state) {
    for (auto _ : state)
        benchmark::DoNotOptimize(LoadDictionary());
}
BENCHMARK(LoadZones)->Unit(benchmark::kMillisecond);

void WriteZones(benchmark::State& state) {
    const auto zones = MakeZones();
    std::string bytes;
    for (auto _ : state)
        benchmark::DoNotOptimize(DictionaryWriter::Write(*zones, bytes));
}
BENCHMARK(WriteZones)->Unit(benchmark::kMillisecond);

void FindItem(benchmark::State& state) {
    const int count = static_cast<int>(state.range(0));
    QcDtDictionary dictionary;
    std::vector<CString> names;
    for (int i = 0; i < count; ++i) {
        names.push_back(FromUtf8("城市" + Number(100000 + i)));
        dictionary.FindOrAddItem(names.back(), QcDtKindString);
    }
    std::size_t at = 0;
    for (auto _ : state) {
        at = (at * 31 + 7) % names.size();
        benchmark::DoNotOptimize(dictionary.FindItem(names[at]));
    }
}
BENCHMARK(FindItem)->Arg(3)->Arg(30)->Arg(300)->Arg(3000)->Arg(30000);

template <class Function>
double FastestSeconds(const Function& function) {
    using Clock = std::chrono::steady_clock;
    double fastest = 1e9;
    for (int i = 0; i < 50; ++i) {
        const auto start = Clock::now();
        benchmark::DoNotOptimize(function());
        fastest = std::min(fastest, std::chrono::duration<double>(Clock::now() - start).count());
    }
    return fastest;
}

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    const double alone = FastestSeconds(WalkWithLibxml2);
    const double loaded = FastestSeconds(LoadDictionary);
    std::printf(
        "\nZone file of %d cities, %zu bytes: libxml2 alone %.2f ms, into a dictionary %.2f ms: %.2f times "
        "(at most 3)\n",
        kProvinces * kCitiesOfEach, ZoneFile().size(), alone * 1e3, loaded * 1e3, loaded / alone);
    return 0;
}
