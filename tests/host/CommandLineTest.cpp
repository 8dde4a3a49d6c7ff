// Printing on the host's command line.
#include "platform/host/CommandLine.h"

#include <gtest/gtest.h>

#include "support/GermanLocale.h"
#include "support/Recorder.h"

namespace {

class CommandLine : public testing::Test {
protected:
    void SetUp() override { SetCommandLineSink(Recorder::Take, &m_recorder); }
    void TearDown() override { SetCommandLineSink(nullptr, nullptr); }

    Recorder m_recorder;
};

TEST_F(CommandLine, FillsAFormat) {
    EXPECT_EQ(acutPrintf(L"%s: %d, %.2f\n", CString(L"日照"), 7, 1.5), 12);
    EXPECT_EQ(acutPrintf(L"%s", L"\n冬至"), 3);
    EXPECT_EQ(m_recorder.texts, (std::vector<std::string>{"日照: 7, 1.50\n", "\n冬至"}));
}

TEST_F(CommandLine, PrintsATextWithoutArguments) {
    EXPECT_EQ(acutPrintf(L"100%% done"), 9);
    EXPECT_EQ(m_recorder.All(), "100% done");
}

TEST_F(CommandLine, PrintsAFormatThatDoesNotFitAsItStands) {
    EXPECT_EQ(acutPrintf(L"%s", 5), 2);
    EXPECT_EQ(acutPrintf(L"%d and %d", 5), 9);
    EXPECT_EQ(m_recorder.texts, (std::vector<std::string>{"%s", "%d and %d"}));
}

TEST_F(CommandLine, PrintsNothingForNullAndEmptyTexts) {
    EXPECT_EQ(acutPrintf(nullptr), 0);
    EXPECT_EQ(acutPrintf(L""), 0);
    EXPECT_EQ(PrintOnCommandLine(nullptr), 0);
    EXPECT_TRUE(m_recorder.texts.empty());
}

TEST_F(CommandLine, PrintsAPlainTextUnchanged) {
    EXPECT_EQ(PrintOnCommandLine(L"%d%"), 3);
    EXPECT_EQ(m_recorder.All(), "%d%");
}

TEST(StandardCommandLine, IsUtf8OnStandardOutputWithoutLineEnds) {
    testing::internal::CaptureStdout();
    acutPrintf(L"%s", L"\n北京");
    acutPrintf(L" %d", 1);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "\n北京 1");
}

TEST(StandardCommandLine, DoesNotDependOnTheLocale) {
    const GermanLocale german;
    testing::internal::CaptureStdout();
    acutPrintf(L"%.1f 度", 0.5);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "0.5 度");
}

TEST(StandardCommandLine, IsBackAfterANullSink) {
    Recorder recorder;
    SetCommandLineSink(Recorder::Take, &recorder);
    SetCommandLineSink(nullptr, &recorder);
    testing::internal::CaptureStdout();
    acutPrintf(L"back");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "back");
    EXPECT_TRUE(recorder.texts.empty());
}

}  // namespace
