// Translates the texts that the toolkit wrote and a person can read: the menus behind the right button of the mouse and
// its file dialog, which it brings in English alone.
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

// The file dialog, the headings of its list, and the kinds of what stands there.
constexpr ToolkitText kFileTexts[] = {
    {"Back", L"后退"},
    {"Go back", L"后退一个文件夹"},
    {"Forward", L"前进"},
    {"Go forward", L"前进一个文件夹"},
    {"Parent Directory", L"上一级"},
    {"Go to the parent directory", L"到上一级文件夹"},
    {"Create New Folder", L"新建文件夹"},
    {"Create a New Folder", L"新建一个文件夹"},
    {"&New Folder", L"新建文件夹(&N)"},
    {"New Folder", L"新文件夹"},
    {"List View", L"列表"},
    {"Change to list view mode", L"改为列表"},
    {"Detail View", L"详细信息"},
    {"Change to detail view mode", L"改为详细信息"},
    {"Files", L"文件列表"},
    {"Sidebar", L"位置栏"},
    {"List of places and bookmarks", L"常用位置"},
    {"All Files (*)", L"所有文件 (*)"},
    {"&Rename", L"重命名(&R)"},
    {"&Delete", L"删除(&D)"},
    {"Show ", L"显示"},
    {"Show &hidden files", L"显示隐藏文件(&H)"},
    {"Recent Places", L"最近的位置"},
    {"Are you sure you want to delete '%1'?", L"要删除“%1”吗？"},
    {"'%1' is write protected.\nDo you want to delete it anyway?", L"“%1”是写保护的。\n仍要删除它吗？"},
    {"Could not delete directory.", L"删除不了这个文件夹。"},
    {"%1\nDirectory not found.\nPlease verify the correct directory name was given.",
     L"没有文件夹“%1”。\n请检查它的名称。"},
};
constexpr ToolkitText kFileListTexts[] = {
    {"Name", L"名称"}, {"Size", L"大小"}, {"Type", L"类型"}, {"Date Modified", L"修改日期"}, {"Computer", L"计算机"},
};
constexpr ToolkitText kFileKinds[] = {
    {"Drive", L"驱动器"},
    {"Folder", L"文件夹"},
    {"File", L"文件"},
    {"%1 File", L"%1 文件"},
};

QString Find(std::span<const ToolkitText> texts, std::string_view english) {
    for (const ToolkitText& each : texts)
        if (each.english == english)
            return ToQString(PlatformText(each.text));
    return {};
}

struct Part {
    std::string_view context;  // as the toolkit calls it
    std::span<const ToolkitText> texts;
};
constexpr Part kParts[] = {
    {"QLineEdit", kEditTexts},
    {"QAbstractSpinBox", kSpinTexts},
    {"QFileDialog", kFileTexts},
    {"QFileSystemModel", kFileListTexts},
    {"QAbstractFileIconProvider", kFileKinds},
};

class ToolkitTexts : public QTranslator {
public:
    using QTranslator::QTranslator;

    bool isEmpty() const override { return false; }

    // A null text leaves the toolkit's own.
    QString translate(const char* context, const char* source, const char* /*which*/, int /*count*/) const override {
        if (context == nullptr || source == nullptr)
            return {};
        const std::string_view place = context;
        for (const Part& part : kParts)
            if (place == part.context)
                return Find(part.texts, source);
        return {};
    }
};

}  // namespace

void TranslateToolkit(QCoreApplication* application) {
    application->installTranslator(new ToolkitTexts(application));
}
