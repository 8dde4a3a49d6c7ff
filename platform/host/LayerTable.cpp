// Records of the tables LAYER and LTYPE, and the tables themselves.
#include "platform/host/LayerTable.h"

#include <algorithm>
#include <charconv>
#include <optional>

#include "platform/host/DrawingChange.h"
#include "platform/host/DxfDrawing.h"
#include "platform/host/DxfObjectMaker.h"
#include "platform/host/DxfPlaces.h"

namespace {

constexpr int kName = 2;
constexpr int kLineType = 6;
constexpr int kColor = 62;
constexpr int kCount = 70;
constexpr int kFlags = 70;
constexpr int kLineWeight = 370;
constexpr int kPlotStyle = 390;
constexpr int kExtendedData = 1000;
constexpr std::string_view kContinuous = "CONTINUOUS";

std::size_t NumberIn(std::string_view value) {
    const std::string_view digits = TrimDxfValue(value);
    std::size_t number = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), number);
    return number;
}

class LayerMaking {
public:
    LayerMaking(const DxfDrawing& drawing, const DxfPlaces& places, DxfObjectMaker& maker, DxfRevision& revision)
        : m_drawing(drawing),
          m_places(places),
          m_maker(maker),
          m_revision(revision),
          m_haveRecordsHandles(maker.GetTraits().hasSubclasses || HasRecordWithHandle()) {}

    void Run(const std::vector<NewLayer>& layers) {
        const std::string lineType = LineType();
        AddRecords("LAYER", layers.size(), [&](std::uint64_t table) {
            const std::string plotStyle = PlotStyle();
            for (const NewLayer& layer : layers)
                MakeLayer(layer, table, lineType, plotStyle);
        });
        InsertNewTables();
    }

private:
    // Before R13 entities could have handles and records of tables not, save where programs gave them some.
    bool HasRecordWithHandle() const {
        for (std::size_t entry = 0; entry < m_drawing.GetIndex().GetCount(); ++entry)
            if (m_drawing.GetIndex().GetKind(entry) == DxfKind::TableRecord && m_drawing.HandleOf(entry) != 0)
                return true;
        return false;
    }

    void BeginRecord(const char* type, std::uint64_t table) {
        if (m_haveRecordsHandles)
            m_maker.Begin(type, table);
        else
            m_maker.Begin(type);
        m_maker.Subclass("AcDbSymbolTableRecord");
    }

    // The continuous line type by the name that the drawing has for it; where it has none, it is made.
    std::string LineType() {
        for (std::size_t entry = 0; entry < m_drawing.GetIndex().GetCount(); ++entry)
            if (m_drawing.IsRecordOf(entry, "LTYPE") && FoldedName(NameOfRecord(m_drawing, entry)) == L"continuous")
                return std::string(FirstDxfValue(m_drawing.TextOf(entry), kName));
        AddRecords("LTYPE", 1, [this](std::uint64_t table) {
            BeginRecord("LTYPE", table);
            m_maker.Subclass("AcDbLinetypeTableRecord");
            m_maker.Group(kName, kContinuous);
            m_maker.Integer(kFlags, 0);
            m_maker.Group(3, "Solid line");
            m_maker.Integer(72, 'A');
            m_maker.Integer(73, 0);  // no dashes
            m_maker.Real(40, 0.0);
        });
        return std::string(kContinuous);
    }

    // The style that the other layers are plotted in; empty where they have none.
    std::string PlotStyle() const {
        for (std::size_t entry = 0; entry < m_drawing.GetIndex().GetCount(); ++entry)
            if (m_drawing.IsRecordOf(entry, "LAYER"))
                if (const std::string_view style = FirstDxfValue(m_drawing.TextOf(entry), kPlotStyle); !style.empty())
                    return std::string(style);
        return {};
    }

    void MakeLayer(const NewLayer& layer, std::uint64_t table, const std::string& lineType,
                   const std::string& plotStyle) {
        constexpr int kUsualWeight = -3;
        BeginRecord("LAYER", table);
        m_maker.Subclass("AcDbLayerTableRecord");
        m_maker.Text(kName, layer.name);
        m_maker.Integer(kFlags, 0);
        m_maker.Integer(kColor, layer.colorIndex);
        m_maker.Group(kLineType, lineType);
        if (!m_maker.GetTraits().hasOwners)
            return;
        m_maker.Integer(kLineWeight, kUsualWeight);
        if (!plotStyle.empty())
            m_maker.Group(kPlotStyle, plotStyle);
    }

    // Calls `make` with the table's handle to make records at the table's end.
    template <class Make>
    void AddRecords(const char* name, std::size_t count, const Make& make) {
        const DxfTable table = m_places.GetTable(name);
        if (table.IsThere()) {
            make(m_drawing.HandleOf(table.head));
            m_revision.InsertBefore(table.tail, m_maker.Finish());
            m_revision.Replace(table.head, HeadOf(table, count));
            return;
        }
        m_maker.Begin("TABLE");
        m_maker.Group(kName, name);
        std::uint64_t handle = 0;
        if (m_maker.GetTraits().hasSubclasses) {
            handle = m_maker.TakeHandle();
            m_maker.Handle(5, handle);
            if (m_maker.GetTraits().hasOwners)
                m_maker.Handle(330, 0);
        }
        m_maker.Subclass("AcDbSymbolTable");
        m_maker.Integer(kCount, static_cast<int>(count));
        make(handle);
        m_maker.Begin("ENDTAB");
        const DxfNewObjects objects = m_maker.Finish();
        m_newTables.text += objects.text;
        m_newTables.count += objects.count;
    }

    // The head of a table with `added` records more: the number in it says how many there are at most.
    std::string HeadOf(const DxfTable& table, std::size_t added) const {
        const std::string_view text = m_drawing.TextOf(table.head);
        std::vector<DxfGroup> groups = ReadDxfGroups(text);
        const auto own = std::find_if(groups.begin(), groups.end(),
                                      [](const DxfGroup& group) { return group.code >= kExtendedData; });
        auto count = std::find_if(groups.begin(), own, [](const DxfGroup& group) { return group.code == kCount; });
        if (count == own)
            count = groups.insert(own, {kCount, "0"});
        const std::size_t records = table.tail - table.head - 1 + added;
        if (NumberIn(count->value) < records)
            count->value = std::to_string(records);
        return RewriteDxfObject(text, groups, m_drawing.GetStyle());
    }

    // Line types come before the layers that are drawn in them.
    void InsertNewTables() {
        if (m_newTables.count == 0)
            return;
        const DxfTable layers = m_places.GetTable("LAYER");
        const std::size_t end = m_places.GetSectionEnd("TABLES");
        if (layers.IsThere()) {
            m_revision.InsertBefore(layers.head, m_newTables);
        } else if (end != DxfIndex::kNone) {
            m_revision.InsertBefore(end, m_newTables);
        } else {
            const std::size_t place = m_places.GetPlaceOfNew("TABLES");
            m_maker.Begin("SECTION");
            m_maker.Group(kName, "TABLES");
            m_revision.InsertBefore(place, m_maker.Finish());
            m_revision.InsertBefore(place, m_newTables);
            m_maker.Begin("ENDSEC");
            m_revision.InsertBefore(place, m_maker.Finish());
        }
    }

    const DxfDrawing& m_drawing;
    const DxfPlaces& m_places;
    DxfObjectMaker& m_maker;
    DxfRevision& m_revision;
    bool m_haveRecordsHandles;
    DxfNewObjects m_newTables;
};

}  // namespace

std::wstring FoldedName(const CString& name) {
    return std::wstring(CString(name).MakeLower().View());
}

CString NameOfRecord(const DxfDrawing& drawing, std::size_t entry) {
    return drawing.GetCodec().Decode(FirstDxfValue(drawing.TextOf(entry), kName));
}

std::set<std::wstring> LayersOf(const DxfDrawing& drawing) {
    std::set<std::wstring> layers = {L"0"};
    for (std::size_t entry = 0; entry < drawing.GetIndex().GetCount(); ++entry)
        if (drawing.IsRecordOf(entry, "LAYER"))
            layers.insert(FoldedName(NameOfRecord(drawing, entry)));
    return layers;
}

void MakeLayers(const DxfDrawing& drawing, const DxfPlaces& places, const std::vector<NewLayer>& layers,
                DxfObjectMaker& maker, DxfRevision& revision) {
    std::set<std::wstring> known = LayersOf(drawing);
    std::vector<NewLayer> missing;
    for (const NewLayer& layer : layers)
        if (known.insert(FoldedName(layer.name)).second)
            missing.push_back(layer);
    if (!missing.empty())
        LayerMaking(drawing, places, maker, revision).Run(missing);
}
