// Colour look-up, and the table's two texts in its dictionary form.
#include "calendar/OrvoColorTable.h"

#include "platform/base/QcDtDictionary.h"
#include "platform/base/TextNumber.h"
#include "platform/geometry/Tolerance.h"

namespace {

constexpr int kColorByLayer = 256;
const wchar_t* const kColorMap = L"SUN_COLORMAP";
const wchar_t* const kTypeColor = L"SUN_TYPECOLOR";

QcDtDictionary* AsDictionary(QcDtDictItem* item) {
    return item && item->GetType() == QcDtKindDictionary ? static_cast<QcDtDictionary*>(item) : nullptr;
}

// The item if it is a text, else null.
QcDtDictItem* AsText(QcDtDictItem* item) {
    return item && item->GetType() == QcDtKindString ? item : nullptr;
}

CString JoinRows(const QcPDList<OrvoColorMap>& rows) {
    CString text;
    CString piece;
    int index = 0;
    for (OrvoColorMap* const* slot = rows.GetFirst(); slot; slot = rows.GetNext(slot), ++index) {
        const OrvoColorMap* row = *slot;
        if (!row)
            continue;
        piece.Format(L"%d-%lf", row->m_nColor, row->m_dValue);
        text += piece;
        // By index, on purpose: a null last row leaves a separator at the end.
        if (index != rows.GetMaxIndex())
            text += L';';
    }
    return text;
}

CString JoinColors(const QcDList<int>& colors) {
    CString text;
    CString piece;
    for (const int* color = colors.GetFirst(); color; color = colors.GetNext(color)) {
        if (!text.IsEmpty())
            text += L';';
        piece.Format(L"%d", *color);
        text += piece;
    }
    return text;
}

}  // namespace

OrvoColorTable::OrvoColorTable() {
    for (int hour = 0; hour < 8; ++hour)
        Append(new OrvoColorMap(hour, hour + 1));
    for (int color = 1; color <= 5; ++color)
        m_listType.Append(color);
}

OrvoColorTable::OrvoColorTable(const OrvoColorTable& other) = default;
OrvoColorTable& OrvoColorTable::operator=(const OrvoColorTable& other) = default;
OrvoColorTable::~OrvoColorTable() = default;

int OrvoColorTable::GetTimeColor(double hours) const {
    for (OrvoColorMap* const* slot = GetLast(); slot; slot = GetPre(slot)) {
        const OrvoColorMap* row = *slot;
        if (row && hours - row->m_dValue >= -g_fZero)
            return row->m_nColor;
    }
    return kColorByLayer;
}

int OrvoColorTable::GetTypeColor(int type) const {
    const int* color = type >= 0 && type < m_listType.GetLength() ? m_listType.GetAt(type) : nullptr;
    return color ? *color : kColorByLayer;
}

bool OrvoColorTable::SaveToXml(QcDtDictItem* item) const {
    QcDtDictionary* dict = AsDictionary(item);
    if (!dict)
        return false;
    dict->RemoveAll();
    QcDtDictItem* rows = AsText(dict->FindOrAddItem(kColorMap, QcDtKindString));
    QcDtDictItem* colors = AsText(dict->FindOrAddItem(kTypeColor, QcDtKindString));
    if (!rows || !colors)
        return false;
    rows->SetStringValue(JoinRows(*this));
    colors->SetStringValue(JoinColors(m_listType));
    return true;
}

bool OrvoColorTable::ReadFromXml(QcDtDictItem* item) {
    QcDtDictionary* dict = AsDictionary(item);
    const QcDtDictItem* rows = dict ? AsText(dict->FindItem(kColorMap)) : nullptr;
    const QcDtDictItem* colors = dict ? AsText(dict->FindItem(kTypeColor)) : nullptr;
    if (!rows || !colors)
        return false;

    Reset();
    m_listType.Reset();
    CStringArray pieces;
    CutStrToArr(rows->GetStringValue(), L";", pieces);
    for (int index = 0; index < pieces.GetSize(); ++index) {
        const CString& piece = pieces.GetAt(index);
        if (piece.GetLength() <= 2)
            continue;
        const int dash = piece.Find(L'-');
        Append(new OrvoColorMap(_wtof(piece.Mid(dash + 1)), _wtoi(piece.Left(dash))));
    }
    CutStrToArr(colors->GetStringValue(), L";", pieces);
    for (int index = 0; index < pieces.GetSize(); ++index)
        m_listType.Append(_wtoi(pieces.GetAt(index)));
    return true;
}
