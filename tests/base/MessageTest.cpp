// The platform's messages and where they go.
#include "platform/base/Message.h"

#include <gtest/gtest.h>

#include "support/Recorder.h"

namespace {

TEST(Message, GoesToTheSinkWithItsContext) {
    Recorder recorder;
    SetMessageSink(Recorder::Take, &recorder);
    ReportMessage(L"太阳");
    ReportMessage(L"100 %s");
    SetMessageSink(nullptr, nullptr);
    EXPECT_EQ(recorder.texts, (std::vector<std::string>{"太阳", "100 %s"}));
}

TEST(Message, DropsNullAndEmptyTexts) {
    Recorder recorder;
    SetMessageSink(Recorder::Take, &recorder);
    ReportMessage(nullptr);
    ReportMessage(L"");
    SetMessageSink(nullptr, nullptr);
    EXPECT_TRUE(recorder.texts.empty());
}

TEST(Message, IsALineOfUtf8OnStandardErrorAtFirst) {
    testing::internal::CaptureStderr();
    ReportMessage(L"日照 1");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "日照 1\n");
}

TEST(Message, GoesToStandardErrorAgainAfterANullSink) {
    Recorder recorder;
    SetMessageSink(Recorder::Take, &recorder);
    SetMessageSink(nullptr, &recorder);
    testing::internal::CaptureStderr();
    ReportMessage(L"back");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "back\n");
    EXPECT_TRUE(recorder.texts.empty());
}

}  // namespace
