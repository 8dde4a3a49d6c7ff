// Opening the drawing, finding the object and the group, and saving.
#include "workbench/commands/EntityCommand.h"

#include <limits>
#include <nlohmann/json.hpp>

#include "platform/base/AtomicFile.h"
#include "platform/base/PlainText.h"
#include "platform/host/AcDbDatabase.h"
#include "platform/host/ExitCode.h"
#include "platform/host/GroupStorage.h"
#include "platform/host/HandleText.h"
#include "platform/host/HostDrawing.h"
#include "platform/host/Output.h"
#include "platform/host/Subcommands.h"
#include "workbench/Texts.h"
#include "workbench/commands/DrawingFile.h"
#include "workbench/commands/EntityGroup.h"
#include "workbench/commands/EntityList.h"
#include "workbench/terminal/Complaint.h"
#include "workbench/terminal/JsonOutput.h"

namespace {

struct Request {
    std::uint64_t handle = 0;
    int code = 0;
};

// Reads the handle and the code; an ExitCode other than kExitOk when one of them is wrong, which is then said.
int ReadRequest(const std::vector<CString>& words, Request& request) {
    const std::optional<std::uint64_t> handle = ParseHandle(words[0]);
    if (!handle || *handle == 0)
        return Refuse(kExitUsage, SayFormat(L"“%s”不是句柄：请写 1 到 16 位十六进制数，例如 2F；--list 列出句柄",
                                            Printable(words[0])));
    const std::optional<std::int64_t> code = ParseInteger(words[1]);
    using Limits = std::numeric_limits<std::int16_t>;
    if (!code || *code < Limits::min() || *code > Limits::max())
        return Refuse(kExitUsage, SayFormat(L"“%s”不是组码：请写一个整数，例如 8", Printable(words[1])));
    request = {*handle, static_cast<int>(*code)};
    return kExitOk;
}

// Why a code has no type: some belong to another one.
CString NoTypeText(int code) {
    for (const int x : {code - 10, code - 20})
        if (StorageOf(code) == GroupStorage::Real && StorageOf(x) == GroupStorage::Point)
            return SayFormat(L"组码 %d 是点的一个坐标：请用组码 %d 读写整个点", code, x);
    return SayFormat(L"组码 %d 没有可以读写的类型", code);
}

CString TypeOf(const AcDbDatabase& drawing, AcDbObjectId id) {
    std::vector<DxfGroup> groups;
    drawing.GetGroups(id, groups);
    return groups.empty() ? CString() : drawing.Decode(groups.front().value);
}

nlohmann::ordered_json JsonOf(const AcDbDatabase& drawing, AcDbObjectId id, const EntityGroup& group) {
    return {{"handle", ToUtf8(HandleText(drawing.GetHandle(id)).View())},
            {"type", ToUtf8(TypeOf(drawing, id).View())},
            {"code", group.Code()},
            {"value", group.Json()}};
}

// The group that was asked for; an ExitCode other than kExitOk, and a message, when there is none.
int FindGroup(const AcDbDatabase& drawing, const Request& request, AcDbObjectId& id) {
    id = drawing.FindHandle(request.handle);
    if (id.isNull())
        return Refuse(kExitFailed, SayFormat(L"图形中没有句柄为 %s 的对象", HandleText(request.handle)));
    const EntityGroup group(drawing, id, request.code);
    if (!group.HasType())
        return Refuse(kExitUsage, NoTypeText(request.code));
    if (!group.Exists())
        return Refuse(kExitFailed, SayFormat(L"句柄为 %s 的对象（%s）没有组码 %d", HandleText(request.handle),
                                             Printable(TypeOf(drawing, id)), request.code));
    return kExitOk;
}

int Get(const AcDbDatabase& drawing, const EntityOptions& options, Output& output) {
    Request request;
    AcDbObjectId id;
    int code = ReadRequest(options.get, request);
    if (code == kExitOk)
        code = FindGroup(drawing, request, id);
    if (code != kExitOk)
        return code;
    const EntityGroup group(drawing, id, request.code);
    if (options.isJson)
        PrintJson(output, JsonOf(drawing, id, group));
    else
        output.Line(Printable(group.Text()));
    return kExitOk;
}

void ReportChange(const CString& path, const CString& before, const EntityGroup& group, bool isChanged,
                  Output& output) {
    const CString after = Printable(group.Text());
    if (!isChanged) {
        output.Line(SayFormat(L"组码 %d 的值本来就是“%s”，文件没有动", group.Code(), after));
        return;
    }
    output.Line(SayFormat(L"组码 %d：“%s”改为“%s”", group.Code(), before, after));
    output.Line(SayFormat(L"已保存到 %s，原来的文件是 %s", Printable(path), Printable(BackupPath(path))));
}

int Set(AcDbDatabase& drawing, const EntityOptions& options, Output& output) {
    Request request;
    AcDbObjectId id;
    int code = ReadRequest(options.set, request);
    if (code == kExitOk)
        code = FindGroup(drawing, request, id);
    if (code != kExitOk)
        return code;
    const EntityGroup group(drawing, id, request.code);
    const CString before = Printable(group.Text());
    CString wrong;
    if (!group.Set(options.set[2], wrong))
        return Refuse(kExitUsage, wrong);
    const bool isChanged = drawing.IsModified();
    if (isChanged && drawing.dxfOut(*options.file, &wrong) != Acad::eOk)
        return Refuse(kExitFailed, wrong);
    if (options.isJson) {
        nlohmann::ordered_json document = JsonOf(drawing, id, group);
        document["changed"] = isChanged;
        PrintJson(output, document);
    } else {
        ReportChange(*options.file, before, group, isChanged, output);
    }
    return kExitOk;
}

}  // namespace

int RunEntity(const EntityOptions& options, Output& output) {
    if (!options.file || options.file->IsEmpty())
        return Refuse(kExitUsage, Say(L"没有给出图形文件：请写一个 DXF 文件，例如 orvo entity house.dxf --list"));
    const int actions = (options.isList ? 1 : 0) + (options.get.empty() ? 0 : 1) + (options.set.empty() ? 0 : 1);
    if (actions > 1)
        return Refuse(kExitUsage, Say(L"--list、--get 和 --set 只能给出一个"));
    AcDbDatabase drawing;
    if (const int readCode = ReadDrawing(drawing, *options.file))
        return readCode;
    const HostDrawing host(drawing);
    if (!options.get.empty())
        return Get(drawing, options, output);
    if (!options.set.empty())
        return Set(drawing, options, output);
    if (options.isJson)
        PrintEntitiesAsJson(drawing, output);
    else
        PrintEntities(drawing, output);
    return kExitOk;
}

Subcommand EntitySubcommand() {
    return {L"entity",
            L"列出图形中的实体，读出或更改实体的一个组码",
            {Required(ValueOption(L"FILE", L"", L"DXF 文件（文本格式）")),
             FlagOption(L"--list", L"列出实体的句柄、类型和图层；不给出别的选项时就是它"),
             ValuesOption(L"--get", 2, L"HANDLE CODE", L"显示一个组码的值"),
             ValuesOption(L"--set", 3, L"HANDLE CODE VALUE", L"更改一个组码的值并保存；原来的文件留作 FILE.bak"),
             FlagOption(L"--json", L"以 JSON 输出")},
            {L"orvo entity house.dxf --list", L"orvo entity house.dxf --get 2F 8",
             L"orvo entity house.dxf --set 2F 10 1.5,2,0"},
            [](SubcommandCall& call) {
                return RunEntity({call.GetValue(L"FILE"), call.HasFlag(L"--list"), call.GetValues(L"--get"),
                                  call.GetValues(L"--set"), call.HasFlag(L"--json")},
                                 call.GetOutput());
            },
            Say};
}
