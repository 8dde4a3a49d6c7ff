// The entities of a drawing as a table and as a document.
#include "workbench/commands/EntityList.h"

#include <nlohmann/json.hpp>
#include <vector>

#include "platform/base/PlainText.h"
#include "platform/host/AcDbDatabase.h"
#include "platform/host/HandleText.h"
#include "platform/host/Output.h"
#include "workbench/Texts.h"
#include "workbench/commands/EntityGroup.h"
#include "workbench/commands/EntityWords.h"
#include "workbench/terminal/JsonOutput.h"
#include "workbench/terminal/TextTable.h"

namespace {

using Json = nlohmann::ordered_json;
using Align = TextTable::Align;

struct Entity {
    std::uint64_t handle;  // 0: none
    EntityWords words;
};

std::vector<Entity> EntitiesOf(const AcDbDatabase& drawing) {
    std::vector<Entity> entities;
    for (std::size_t i = 0; i < drawing.GetEntityCount(); ++i) {
        const AcDbObjectId id = drawing.GetEntityId(i);
        entities.push_back({drawing.GetHandle(id), WordsOfEntity(drawing, id)});
    }
    return entities;
}

}  // namespace

void PrintEntities(const AcDbDatabase& drawing, Output& output) {
    const std::vector<Entity> entities = EntitiesOf(drawing);
    TextTable table({Align::Right, Align::Left, Align::Left});
    table.Add({Say(L"句柄"), Say(L"类型"), Say(L"图层")});
    for (const Entity& entity : entities)
        table.Add({entity.handle == 0 ? CString(L"-") : HandleText(entity.handle), Printable(entity.words.type),
                   Printable(entity.words.layer)});
    table.PrintTo(output);
    output.Line(SayFormat(L"共 %d 个实体", static_cast<int>(entities.size())));
}

void PrintEntitiesAsJson(const AcDbDatabase& drawing, Output& output) {
    Json list = Json::array();
    for (const Entity& entity : EntitiesOf(drawing)) {
        Json handle = nullptr;
        if (entity.handle != 0)
            handle = ToUtf8(HandleText(entity.handle).View());
        list.push_back({{"handle", handle},
                        {"type", ToUtf8(entity.words.type.View())},
                        {"layer", ToUtf8(entity.words.layer.View())}});
    }
    PrintJson(output, list);
}
