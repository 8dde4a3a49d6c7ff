// Cells, the order of rows, and which of them there are.
#include "workbench/panel/WindowModel.h"

#include <QBrush>
#include <algorithm>
#include <numeric>

#include "platform/base/PlainText.h"
#include "workbench/Texts.h"
#include "workbench/commands/AnalysisWords.h"
#include "workbench/view/IndexColors.h"
#include "workbench/view/WidgetText.h"

namespace {

bool IsNumber(int column) {
    return column == WindowModel::Floor || column == WindowModel::Hours || column == WindowModel::Before ||
           column == WindowModel::Lost;
}

// What is not known comes first.
double NumberOf(const WindowResult& window, int column) {
    constexpr double kUnknown = -1e9;
    switch (column) {
        case WindowModel::Floor:
            return window.floor ? *window.floor : kUnknown;
        case WindowModel::Hours:
            return IsAnalysed(window) ? window.judged : kUnknown;
        case WindowModel::Before:
            return IsAnalysed(window) && window.before ? window.before->judged : kUnknown;
        case WindowModel::Lost:
            return IsAnalysed(window) && window.before ? LostMinutes(window) : kUnknown;
        default:  // those that fail, that pass, that have none
            return window.passes ? (*window.passes ? 1.0 : 0.0) : 2.0;
    }
}

// So that flat 9 comes before flat 10, in any locale.
QString WithPaddedNumbers(const QString& text) {
    constexpr int kDigits = 12;
    QString padded;
    QString digits;
    const auto flush = [&] {
        if (!digits.isEmpty())
            padded += digits.rightJustified(kDigits, '0');
        digits.clear();
    };
    for (const QChar each : text) {
        if (each >= '0' && each <= '9') {
            digits += each;
            continue;
        }
        flush();
        padded += each;
    }
    flush();
    return padded;
}

CString LostText(double minutes) {
    return minutes < 0.0 ? L"-" + DurationText(-minutes) : DurationText(minutes);
}

}  // namespace

void WindowModel::SetReport(std::shared_ptr<const AnalysisReport> report) {
    beginResetModel();
    m_report = std::move(report);
    FillTexts();
    FillRows();
    endResetModel();
}

void WindowModel::SetFilter(const QString& text, bool areOnlyFailing) {
    beginResetModel();
    m_filter = text.trimmed().toCaseFolded();
    m_areOnlyFailing = areOnlyFailing;
    FillRows();
    endResetModel();
}

void WindowModel::Retranslate() {
    beginResetModel();
    FillTexts();
    FillRows();
    endResetModel();
}

void WindowModel::sort(int column, Qt::SortOrder order) {
    beginResetModel();
    m_column = column;
    m_order = order;
    FillRows();
    endResetModel();
}

void WindowModel::FillTexts() {
    m_texts.clear();
    if (!m_report)
        return;
    m_texts.reserve(m_report->answer.windows.size());
    for (const WindowResult& window : m_report->answer.windows) {
        QString text;
        for (const int column : {Name, Building, Flat, Verdict})
            text += TextOf(window, column).toCaseFolded() + '\n';
        m_texts.push_back(text);
    }
}

void WindowModel::FillRows() {
    m_rows.clear();
    if (!m_report)
        return;
    const std::vector<WindowResult>& windows = m_report->answer.windows;
    for (std::size_t i = 0; i < windows.size(); ++i)
        if ((!m_areOnlyFailing || windows[i].passes == false) && m_texts[i].contains(m_filter))
            m_rows.push_back(i);
    SortRows();
}

// Stable: windows of one value stay in the order of the drawing.
void WindowModel::SortRows() {
    const std::vector<WindowResult>& windows = m_report->answer.windows;
    if (m_column < 0 || m_column >= kColumnCount)
        return;
    const auto sortBy = [this](const auto& keys) {
        const auto less = [&](std::size_t a, std::size_t b) { return keys[a] < keys[b]; };
        const auto more = [&](std::size_t a, std::size_t b) { return keys[b] < keys[a]; };
        if (m_order == Qt::AscendingOrder)
            std::stable_sort(m_rows.begin(), m_rows.end(), less);
        else
            std::stable_sort(m_rows.begin(), m_rows.end(), more);
    };
    if (IsNumber(m_column) || m_column == Verdict) {
        std::vector<double> keys;
        for (const WindowResult& window : windows)
            keys.push_back(NumberOf(window, m_column));
        return sortBy(keys);
    }
    std::vector<QString> keys;
    keys.reserve(windows.size());
    for (const WindowResult& window : windows)
        keys.push_back(WithPaddedNumbers(TextOf(window, m_column).toCaseFolded()));
    sortBy(keys);
}

int WindowModel::RowOf(std::size_t window) const {
    const auto found = std::find(m_rows.begin(), m_rows.end(), window);
    return found == m_rows.end() ? -1 : static_cast<int>(found - m_rows.begin());
}

int WindowModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int WindowModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : kColumnCount;
}

QString WindowModel::TextOf(const WindowResult& window, int column) const {
    const bool isCompared = IsAnalysed(window) && window.before;
    switch (column) {
        case Name:
            return Shown(WindowLabel(window));
        case Building:
            return Shown(Printable(window.building));
        case Flat:
            return Shown(Printable(window.flat));
        case Floor:
            return window.floor ? QString::number(*window.floor) : QString("-");
        case Hours:
            return IsAnalysed(window) ? Shown(DurationText(window.judged)) : QString("-");
        case Verdict:
            return Shown(VerdictWord(window.passes));
        case Before:
            return isCompared ? Shown(DurationText(window.before->judged)) : QString("-");
        default:
            return isCompared ? Shown(LostText(LostMinutes(window))) : QString("-");
    }
}

QVariant WindowModel::data(const QModelIndex& index, int role) const {
    const WindowResult& window = m_report->answer.windows[WindowAt(index.row())];
    const bool isFailing = index.column() == Verdict && window.passes == false;
    if (role == Qt::DisplayRole)
        return TextOf(window, index.column());
    if (role == Qt::ToolTipRole && !window.notes.empty()) {
        const FieldWords words;
        QStringList notes;
        for (const WindowNote note : window.notes)
            notes << Shown(NoteWord(note));
        return notes.join('\n');
    }
    if (role == Qt::TextAlignmentRole && IsNumber(index.column()))
        return QVariant(Qt::AlignRight | Qt::AlignVCenter);
    if (role == Qt::BackgroundRole && isFailing)
        return QBrush(QColor(196, 43, 28));
    if (role == Qt::ForegroundRole && isFailing)
        return QBrush(Qt::white);
    // The colour that the window has in the view.
    if (role == Qt::DecorationRole && index.column() == Hours && IsAnalysed(window))
        return QColor(static_cast<QRgb>(RgbOfColorIndex(window.color)));
    return {};
}

QVariant WindowModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role != Qt::DisplayRole || orientation != Qt::Horizontal)
        return {};
    static constexpr const wchar_t* kTitles[kColumnCount] = {L"窗（句柄）", L"判定时数", L"结论", L"方案前",
                                                             L"失去",       L"楼层",     L"楼",   L"户"};
    return section >= 0 && section < kColumnCount ? ShownSay(kTitles[section]) : QString();
}
