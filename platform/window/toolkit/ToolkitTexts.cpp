// Translates the texts that the toolkit wrote and a person can read: the menus behind the right button of the mouse,
// which it brings in English alone.
#include <QCoreApplication>
#include <QTranslator>
#include <span>
#include <string_view>

#include "platform/base/Language.h"
#include "platform/window/toolkit/QtText.h"

namespace {

struct ToolkitText {
    std::string_view english;
    const wchar_t* text;
};

constexpr ToolkitText kEditTexts[] = {
    {"&Undo", L"撤消(&U)"},  {"&Redo", L"重做(&R)"}, {"Cu&t", L"剪切(&T)"},   {"&Copy", L"复制(&C)"},
    {"&Paste", L"粘贴(&P)"}, {"Delete", L"删除"},    {"Select All", L"全选"},
};
constexpr ToolkitText kSpinTexts[] = {
    {"&Select All", L"全选(&A)"},
    {"&Step up", L"增加(&S)"},
    {"Step &down", L"减少(&D)"},
};

QString Find(std::span<const ToolkitText> texts, std::string_view english) {
    for (const ToolkitText& each : texts)
        if (each.english == english)
            return ToQString(PlatformText(each.text));
    return {};
}

class ToolkitTexts : public QTranslator {
public:
    using QTranslator::QTranslator;

    bool isEmpty() const override { return false; }

    // A null text leaves the toolkit's own.
    QString translate(const char* context, const char* source, const char* /*which*/, int /*count*/) const override {
        if (context == nullptr || source == nullptr)
            return {};
        const std::string_view place = context;
        if (place == "QLineEdit")
            return Find(kEditTexts, source);
        return place == "QAbstractSpinBox" ? Find(kSpinTexts, source) : QString();
    }
};

}  // namespace

void TranslateToolkit(QCoreApplication* application) {
    application->installTranslator(new ToolkitTexts(application));
}
