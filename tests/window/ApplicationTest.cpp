// The application that a library makes for itself, in processes of their own: there is one for each process.
#include <gtest/gtest.h>
#include <stdio.h>

#include <QApplication>
#include <clocale>
#include <cstdlib>
#include <string>
#include <thread>
#include <vector>

#include "platform/base/Message.h"
#include "platform/window/MessageBox.h"
#include "platform/window/ModalDriver.h"
#include "support/Folders.h"
#include "support/Recorder.h"

namespace {

// Runs the probe with these settings (NAME=VALUE ...) and without a display; its lines, and what it reports.
std::string Probe(const std::string& who, const std::string& settings = "") {
    const std::string command = "env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM " + settings + " '" +
                                BuildFolder() + "/bin/window-probe' " + who + " 2>&1";
    std::string lines;
    std::FILE* pipe = popen(command.c_str(), "r");
    if (pipe == nullptr)
        return lines;
    for (int character = std::fgetc(pipe); character != EOF; character = std::fgetc(pipe))
        lines.push_back(static_cast<char>(character));
    EXPECT_EQ(pclose(pipe), 0) << lines;
    return lines;
}

bool Has(const std::string& lines, const std::string& line) {
    return ("\n" + lines).find("\n" + line + "\n") != std::string::npos;
}

TEST(Application, IsMadeOffScreenWhereThereIsNoDisplay) {
    const std::string lines = Probe("plain");
    EXPECT_TRUE(Has(lines, "platform offscreen")) << lines;
    EXPECT_TRUE(Has(lines, "question")) << "the text is reported: " << lines;
    EXPECT_TRUE(Has(lines, "answer 7")) << lines;
    EXPECT_TRUE(Has(lines, "application 1")) << lines;
}

TEST(Application, TakesAnEmptyPlatformForNone) {
    const std::string lines = Probe("plain", "DISPLAY= WAYLAND_DISPLAY= QT_QPA_PLATFORM=");
    EXPECT_TRUE(Has(lines, "platform offscreen")) << lines;
    EXPECT_TRUE(Has(lines, "answer 7")) << lines;
}

TEST(Application, LeavesThePlatformToWhoNamedOne) {
    const std::string lines = Probe("plain", "QT_QPA_PLATFORM=minimal");
    EXPECT_TRUE(Has(lines, "platform minimal")) << lines;
    EXPECT_TRUE(Has(lines, "answer 7")) << "nobody sees that one either: " << lines;
}

TEST(Application, OutlivesTheLibraryThatMadeIt) {
    const std::string lines = Probe("plain");
    EXPECT_TRUE(Has(lines, "stays 1")) << lines;
    EXPECT_TRUE(Has(lines, "end 1")) << lines;
}

TEST(Application, KeepsNumbersWithAPointInALocaleWithAComma) {
    const std::string lines = Probe("plain", "LOCPATH='" + BuildFolder() + "/locales' LC_ALL=de_DE.UTF-8");
    EXPECT_TRUE(Has(lines, "texts de_DE.UTF-8")) << "the locale is not in force, so this proves nothing: " << lines;
    EXPECT_TRUE(Has(lines, "half 0.5")) << lines;
}

TEST(Application, OfAConsoleProgramMakesNoBoxes) {
    const std::string lines = Probe("console");
    EXPECT_TRUE(Has(lines, "question")) << lines;
    EXPECT_TRUE(Has(lines, "answer 7")) << lines;
    EXPECT_TRUE(Has(lines, "end 1")) << lines;
}

TEST(Application, MakesNoBoxesInOtherThreads) {
    const ModalDriver driver([](const ModalWindow&) { return IDYES; });
    EXPECT_EQ(MessageBox(nullptr, L"first", L"caption", MB_YESNO), IDYES);
    Recorder recorder;
    SetMessageSink(Recorder::Take, &recorder);
    int answer = 0;
    std::thread([&answer] { answer = MessageBox(nullptr, L"other thread", L"caption", MB_YESNO); }).join();
    SetMessageSink(nullptr, nullptr);
    EXPECT_EQ(answer, IDNO);
    EXPECT_EQ(recorder.texts, std::vector<std::string>{"other thread"});
    EXPECT_EQ(driver.GetCount(), 1);
}

TEST(Application, IsOneForAllBoxes) {
    const ModalDriver driver([](const ModalWindow&) { return IDOK; });
    MessageBox(nullptr, L"first", L"caption", MB_OK);
    const QCoreApplication* first = QCoreApplication::instance();
    ASSERT_NE(qobject_cast<const QApplication*>(first), nullptr);
    MessageBox(nullptr, L"second", L"caption", MB_OK);
    EXPECT_EQ(QCoreApplication::instance(), first);
    EXPECT_STREQ(std::setlocale(LC_NUMERIC, nullptr), "C");
}

}  // namespace
