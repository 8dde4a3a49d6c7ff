// The module's dialogs with 3,000 cities, from their making until they are painted, against bare dialogs of the toolkit
// with the same in them; and the saving of 3,000 edited rows, against libxml2 writing the same file.
#include <libxml/xmlwriter.h>
#include <stdlib.h>
#include <time.h>
#include <unistd.h>

#include <QComboBox>
#include <QDialog>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QTreeWidget>
#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

#include "MedianReporter.h"
#include "frame/ConfigDictionaries.h"
#include "frame/ConfigFiles.h"
#include "frame/Resources.h"
#include "platform/base/QcDtDictionary.h"
#include "platform/host/CommandLine.h"
#include "platform/host/HostMessages.h"
#include "platform/window/ModalDriver.h"
#include "settings/OrvoDataPrecisSetDlg.h"
#include "settings/OrvoSetStdDlg.h"
#include "zone/OrvoPlaceDlg.h"
#include "zone/OrvoZoneDbSetDlg.h"

namespace {

constexpr int kProvinces = 30;
constexpr int kCities = 100;  // of each province
constexpr int kRounds = 15;
constexpr double kMostSecondsToOpen = 0.150;
constexpr double kMostSecondsToSave = 0.200;
constexpr int kWidth = 560;
constexpr int kHeight = 400;

std::filesystem::path g_folder;

double Seconds(clockid_t clock) {
    timespec time{};
    clock_gettime(clock, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

// Others may share the machine: what opens costs this process's time, what saves the user's.
double ProcessSeconds() {
    return Seconds(CLOCK_PROCESS_CPUTIME_ID);
}
double UserSeconds() {
    return Seconds(CLOCK_MONOTONIC);
}

std::string CityName(int province, int city) {
    return province == 0 && city == 0 ? "北京" : "城市" + std::to_string(province * kCities + city);
}

std::string Position(int number) {
    char text[32];
    std::snprintf(text, sizeof text, "%14.10f", number * 0.01);
    return text;
}

// The zone file, as the editor writes it.
void WriteZones() {
    std::ofstream file(g_folder / "zone.xml");
    file << "<ORVO_ZONEDATA>";
    for (int i = 0; i < kProvinces; ++i) {
        file << "<省份" << i << " type=\"PROVINCE\">";
        for (int k = 0; k < kCities; ++k) {
            const std::string position = Position(i * kCities + k);
            file << '<' << CityName(i, k) << " type=\"CITY\" longitude=\"" << position << "\" latitude=\"" << position
                 << "\" comment=\"气象站\"/>";
        }
        file << "</省份" << i << '>';
    }
    file << "</ORVO_ZONEDATA>";
}

QWidget* WidgetOf(const ModalWindow& window) {
    return static_cast<QWidget*>(window.widget);
}

// Runs a dialog that `make` makes, and gives the time until all of it has been painted.
template <class Make>
void Open(benchmark::State& state, const Make& make) {
    for (auto _ : state) {
        double begin = 0;
        double end = 0;
        int boxes = 0;
        const ModalDriver driver([&](const ModalWindow& window) {
            boxes += window.text.IsEmpty() ? 0 : 1;
            benchmark::DoNotOptimize(WidgetOf(window)->grab());
            end = ProcessSeconds();
            return int{IDCANCEL};
        });
        const QcUtPushResource scope(GetModuleResourceHandle());
        begin = ProcessSeconds();
        auto dialog = make();
        dialog->DoModal();
        if (boxes > 0 || driver.GetCount() != 1)
            state.SkipWithError("a message came in between");
        state.SetIterationTime(end - begin);
    }
}

// The same of a bare dialog, which `fill` fills.
template <class Fill>
void OpenBare(benchmark::State& state, const Fill& fill) {
    for (auto _ : state) {
        const double begin = ProcessSeconds();
        QDialog dialog;
        dialog.resize(kWidth, kHeight);
        QHBoxLayout layout(&dialog);
        fill(dialog, layout);
        dialog.show();
        benchmark::DoNotOptimize(dialog.grab());
        state.SetIterationTime(ProcessSeconds() - begin);
    }
}

QString Text(const std::string& text) {
    return QString::fromStdString(text);
}

void FillTree(QDialog& /*dialog*/, QHBoxLayout& layout) {
    auto* tree = new QTreeWidget;
    layout.addWidget(tree);
    tree->setUniformRowHeights(true);
    tree->setAlternatingRowColors(true);
    tree->setHeaderLabels({"1", "2", "3", "4", "5"});
    for (int i = 0; i < kProvinces; ++i) {
        const QString name = Text("省份" + std::to_string(i));
        auto* province = new QTreeWidgetItem(tree, {name});
        for (int k = 0; k < kCities; ++k)
            new QTreeWidgetItem(
                province, {name, Text(CityName(i, k)), Text("001度00分00秒"), Text("001度00分00秒"), Text("气象站")});
        province->setExpanded(true);
    }
}

void FillControls(QHBoxLayout& layout, int count) {
    for (int i = 0; i < count; ++i) {
        layout.addWidget(new QLabel(Text("经度:")));
        layout.addWidget(new QLineEdit(Text("001度00分")));
    }
}

void FillLists(QDialog& /*dialog*/, QHBoxLayout& layout) {
    auto* provinces = new QListWidget;
    auto* cities = new QListWidget;
    layout.addWidget(provinces);
    layout.addWidget(cities);
    for (int i = 0; i < kProvinces; ++i)
        provinces->addItem(Text("省份" + std::to_string(i)));
    for (int k = 0; k < kCities; ++k)
        cities->addItem(Text(CityName(0, k)));
    FillControls(layout, 4);
}

void FillPlain(QDialog& /*dialog*/, QHBoxLayout& layout) {
    FillControls(layout, 12);
    for (int i = 0; i < 3; ++i)
        layout.addWidget(new QComboBox);
}

void OpenEditor(benchmark::State& state) {
    Open(state, [] { return std::make_unique<OrvoZoneDbSetDlg>(); });
}
void OpenBareTree(benchmark::State& state) {
    OpenBare(state, FillTree);
}
void OpenPlaces(benchmark::State& state) {
    Open(state, [] { return std::make_unique<OrvoPlaceDlg>(); });
}
void OpenBareLists(benchmark::State& state) {
    OpenBare(state, FillLists);
}
void OpenPrecision(benchmark::State& state) {
    Open(state, [] { return std::make_unique<OrvoDataPrecisSetDlg>(nullptr); });
}
void OpenStandards(benchmark::State& state) {
    Open(state, [] { return std::make_unique<OrvoSetStdDlg>(); });
}
void OpenBareControls(benchmark::State& state) {
    OpenBare(state, FillPlain);
}

// From the press on OK to the end of the dialog; each time there is something to write.
void SaveRows(benchmark::State& state) {
    int round = 0;
    for (auto _ : state) {
        double begin = 0;
        const ModalDriver driver([&](const ModalWindow& window) {
            auto* grid = dynamic_cast<QcUiGrid*>(
                CWnd::FromHandlePermanent(reinterpret_cast<HWND>(WidgetOf(window)->findChild<QWidget*>("IDC_2001"))));
            if (grid == nullptr)
                return int{IDCANCEL};
            CString comment;
            comment.Format(L"%d", ++round);
            grid->GetRow(1)->SetItemText(4, comment);
            begin = UserSeconds();
            return int{IDOK};
        });
        const QcUtPushResource scope(GetModuleResourceHandle());
        OrvoZoneDbSetDlg dialog;
        if (dialog.DoModal() != IDOK)
            state.SkipWithError("there is no grid");
        state.SetIterationTime(UserSeconds() - begin);
    }
}

const xmlChar* XmlOf(const std::string& text) {
    return reinterpret_cast<const xmlChar*>(text.c_str());
}

void WriteCity(xmlTextWriter* xml, int province, int city) {
    const std::string position = Position(province * kCities + city);
    xmlTextWriterStartElement(xml, XmlOf(CityName(province, city)));
    for (const auto& [name, value] : {std::pair<std::string, std::string>{"type", "CITY"},
                                      {"longitude", position},
                                      {"latitude", position},
                                      {"comment", "气象站"}})
        xmlTextWriterWriteAttribute(xml, XmlOf(name), XmlOf(value));
    xmlTextWriterEndElement(xml);
}

// The bare writing, into a new file that is on the disk in the end and takes the old one's name.
void SaveBare(benchmark::State& state) {
    const std::string target = (g_folder / "bare.xml").string();
    const std::string temporary = target + ".new";
    for (auto _ : state) {
        const double begin = UserSeconds();
        xmlTextWriter* xml = xmlNewTextWriterFilename(temporary.c_str(), 0);
        xmlTextWriterSetIndent(xml, 1);
        xmlTextWriterStartDocument(xml, nullptr, "UTF-8", nullptr);
        xmlTextWriterStartElement(xml, XmlOf("ORVO_ZONEDATA"));
        for (int i = 0; i < kProvinces; ++i) {
            xmlTextWriterStartElement(xml, XmlOf("省份" + std::to_string(i)));
            for (int k = 0; k < kCities; ++k)
                WriteCity(xml, i, k);
            xmlTextWriterEndElement(xml);
        }
        xmlTextWriterEndDocument(xml);
        xmlFreeTextWriter(xml);
        std::FILE* file = std::fopen(temporary.c_str(), "r+");
        if (file == nullptr || fsync(fileno(file)) != 0 || std::fclose(file) != 0 ||
            std::rename(temporary.c_str(), target.c_str()) != 0)
            state.SkipWithError("the file was not written");
        state.SetIterationTime(UserSeconds() - begin);
    }
}

void Print(MedianReporter& reporter, const char* what, const char* ours, const char* peer, double most) {
    const double seconds = reporter.realSeconds[ours];
    const double bare = reporter.realSeconds[peer];
    if (seconds > 0 && bare > 0)
        std::printf("%s: %.1f ms (at most %.0f), bare: %.1f ms, ratio %.2f\n", what, seconds * 1e3, most * 1e3,
                    bare * 1e3, seconds / bare);
}

void Register(const char* name, void (*function)(benchmark::State&)) {
    benchmark::RegisterBenchmark(name, function)
        ->Iterations(1)
        ->Repetitions(kRounds)
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
}

void RunAll(MedianReporter& reporter) {
    Register("OpenEditor", OpenEditor);
    Register("OpenBareTree", OpenBareTree);
    Register("OpenPlaces", OpenPlaces);
    Register("OpenBareLists", OpenBareLists);
    Register("OpenPrecision", OpenPrecision);
    Register("OpenStandards", OpenStandards);
    Register("OpenBareControls", OpenBareControls);
    Register("SaveRows", SaveRows);
    Register("SaveBare", SaveBare);
    benchmark::RunSpecifiedBenchmarks(&reporter);
    Print(reporter, "Opening the editor, 3,000 cities", "OpenEditor", "OpenBareTree", kMostSecondsToOpen);
    Print(reporter, "Opening the places, 3,000 cities", "OpenPlaces", "OpenBareLists", kMostSecondsToOpen);
    Print(reporter, "Opening the precisions", "OpenPrecision", "OpenBareControls", kMostSecondsToOpen);
    Print(reporter, "Opening the standards", "OpenStandards", "OpenBareControls", kMostSecondsToOpen);
    Print(reporter, "Saving 3,000 rows", "SaveRows", "SaveBare", kMostSecondsToSave);
}

}  // namespace

int main(int argc, char** argv) {
    InitializeForMedians(argc, argv);
    MedianReporter reporter;

    std::string folder = (std::filesystem::temp_directory_path() / "dialog-bench-XXXXXX").string();
    if (mkdtemp(folder.data()) == nullptr)
        return 1;
    g_folder = folder;
    WriteZones();
    setenv("ORVO_SUPPORT_PATH", folder.c_str(), 1);
    SetCommandLineSink([](const wchar_t*, void*) {}, nullptr);
    int application = 0;
    acrxEntryPoint(1, &application);
    const int failed = g_dictSunZone.GetCount() == kProvinces ? 0 : 1;
    {
        OrvoZoneDbSetDlg first;  // the toolkit's own beginning is nobody's
        const ModalDriver driver([](const ModalWindow&) { return int{IDCANCEL}; });
        const QcUtPushResource scope(GetModuleResourceHandle());
        first.DoModal();
    }
    if (failed == 0)
        RunAll(reporter);
    acrxEntryPoint(2, &application);
    std::filesystem::remove_all(g_folder);
    return failed;
}
