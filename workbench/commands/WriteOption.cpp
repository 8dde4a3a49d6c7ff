// Looks at the file before the work begins, and writes it when it is done.
#include "workbench/commands/WriteOption.h"

#include <filesystem>

#include "analysis/ResultLayers.h"
#include "platform/base/AtomicFile.h"
#include "platform/base/PlainText.h"
#include "platform/host/AcDbDatabase.h"
#include "platform/host/DrawingChange.h"
#include "platform/host/ExitCode.h"
#include "platform/host/Subcommands.h"
#include "workbench/Texts.h"
#include "workbench/commands/OutputNames.h"
#include "workbench/terminal/Complaint.h"

namespace fs = std::filesystem;

namespace {

fs::path PathOf(const CString& text) {
    return {ToUtf8(text.View())};
}

}  // namespace

SubcommandOption WriteOption() {
    return ValueOption(L"--write", L"OUT.dxf", L"把结果画在图形上，另存为这个文件；原来的文件不变");
}

int CheckWriteOption(const CString& drawing, const std::optional<CString>& write) {
    if (!write)
        return kExitOk;
    if (CString(*write).Trim().IsEmpty())
        return Refuse(kExitUsage, Say(L"--write 的值是空的：请写要写出的文件，例如 --write result.dxf"));
    if (AreSameName(drawing, *write) || AreSameName(drawing, BackupPath(write->GetString())))
        return Refuse(kExitUsage,
                      SayFormat(L"--write 的“%s”会改掉要分析的图形，没有分析；请另写一个文件名", Printable(*write)));
    std::error_code error;
    const fs::path folder = PathOf(*write).parent_path();
    if (!folder.empty() && !fs::is_directory(folder, error))
        return Refuse(kExitFailed, SayFormat(L"--write 的文件夹“%s”不存在，没有分析；请先建立文件夹",
                                             Printable(FromUtf8(folder.string()))));
    if (fs::is_directory(PathOf(*write), error))
        return Refuse(kExitFailed, SayFormat(L"--write 的“%s”是文件夹，没有分析；请写一个文件名", Printable(*write)));
    return kExitOk;
}

int RefuseResultLayers(const wchar_t* option, const std::vector<CString>& layers) {
    for (const CString& layer : layers)
        if (IsResultLayer(layer))
            return Refuse(kExitUsage, SayFormat(L"%s 的图层“%s”上是本程序画的结果，不能分析；请写画有窗或轮廓的图层",
                                                CString(option), Printable(layer)));
    return kExitOk;
}

int WriteDrawing(AcDbDatabase& drawing, const DrawingChange& change, const CString& path) {
    CString message;
    if (drawing.Redraw(change, &message) != Acad::eOk || drawing.dxfOut(path.GetString(), &message) != Acad::eOk)
        return Refuse(kExitFailed, message);
    return kExitOk;
}
