// The text's width comes from its font alone, the room for it from the style: neither asks the control what it needs.
#include "TextRoom.h"

#include <QAbstractSpinBox>
#include <QCheckBox>
#include <QComboBox>
#include <QGlyphRun>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QStyle>
#include <QStyleOption>
#include <QTextDocument>
#include <QTextLayout>
#include <QTreeView>
#include <algorithm>

namespace {

constexpr int kEditMargin = 2;  // at either side of a line edit's text

QString Quoted(const QString& text) {
    return QString("\"%1\"").arg(text);
}

// Signs that stand for themselves in no font are drawn as boxes.
bool HasAllSigns(QString text, const QFont& font) {
    for (const char16_t invisible : {u'\u200B', u'\n', u'\t'})
        text.remove(QChar(invisible));
    QTextLayout layout(text, font);
    layout.beginLayout();
    layout.createLine();
    layout.endLayout();
    const QList<QGlyphRun> runs = layout.glyphRuns();
    return std::none_of(runs.begin(), runs.end(),
                        [](const QGlyphRun& run) { return run.glyphIndexes().contains(quint32{0}); });
}

// A text in one line, of which a room is left; marks of mnemonics take none.
void CheckLine(const QWidget& control, const QString& text, const QSize& room, QStringList& faults) {
    const QSize needed = control.fontMetrics().size(Qt::TextShowMnemonic | Qt::TextSingleLine, text);
    if (needed.width() > room.width())
        faults << QString("%1 needs %2 pixels and has %3").arg(Quoted(text)).arg(needed.width()).arg(room.width());
    if (!text.isEmpty() && needed.height() > room.height())
        faults << QString("%1 is %2 pixels high in a room of %3")
                      .arg(Quoted(text))
                      .arg(needed.height())
                      .arg(room.height());
    if (!HasAllSigns(text, control.font()))
        faults << QString("%1 has signs that no font shows").arg(Quoted(text));
}

// A text with colours or links is laid out as the label does it.
void CheckRichLabel(const QLabel& label, QStringList& faults) {
    constexpr double kRounding = 1.0;
    QTextDocument document;
    document.setDefaultFont(label.font());
    document.setDocumentMargin(0.0);
    document.setHtml(label.text());
    document.setTextWidth(label.contentsRect().width());
    if (document.idealWidth() > label.contentsRect().width() + kRounding ||
        document.size().height() > label.contentsRect().height() + kRounding)
        faults << QString("%1 does not fit where it stands").arg(Quoted(document.toPlainText()));
    if (!HasAllSigns(document.toPlainText(), label.font()))
        faults << QString("%1 has signs that no font shows").arg(Quoted(document.toPlainText()));
}

void CheckLabel(const QLabel& label, QStringList& faults) {
    if (label.text().isEmpty())
        return;
    if (label.textFormat() == Qt::RichText)
        return CheckRichLabel(label, faults);
    // One that says by an ellipsis that there is more takes what room there is.
    if (label.sizePolicy().horizontalPolicy() == QSizePolicy::Ignored && label.toolTip() == label.text())
        return;
    if (!label.wordWrap()) {
        for (const QString& line : label.text().split('\n'))
            CheckLine(label, line, {label.contentsRect().width(), label.height()}, faults);
        return;
    }
    const QRect room = label.contentsRect();
    const QRect needed = label.fontMetrics().boundingRect(QRect(0, 0, room.width(), QWIDGETSIZE_MAX),
                                                          Qt::TextWordWrap | Qt::TextExpandTabs, label.text());
    if (needed.width() > room.width() || needed.height() > room.height())
        faults << QString("%1 does not fit where it stands").arg(Quoted(label.text()));
    if (!HasAllSigns(label.text(), label.font()))
        faults << QString("%1 has signs that no font shows").arg(Quoted(label.text()));
}

void CheckButton(const QAbstractButton& button, QStringList& faults) {
    QStyleOptionButton option;
    option.initFrom(&button);
    option.text = button.text();
    QStyle::SubElement part = QStyle::SE_PushButtonContents;
    if (qobject_cast<const QCheckBox*>(&button) != nullptr)
        part = QStyle::SE_CheckBoxContents;
    else if (qobject_cast<const QRadioButton*>(&button) != nullptr)
        part = QStyle::SE_RadioButtonContents;
    const int width = button.style()->subElementRect(part, &option, &button).width();
    CheckLine(button, button.text(), {width, button.height()}, faults);
}

void CheckGroupBox(const QGroupBox& box, QStringList& faults) {
    CheckLine(box, box.title(), box.size() - QSize(2 * kEditMargin, 0), faults);
}

void CheckCombo(const QComboBox& combo, QStringList& faults) {
    QStyleOptionComboBox option;
    option.initFrom(&combo);
    option.editable = combo.isEditable();
    const QRect room =
        combo.style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, &combo);
    for (int i = 0; i < combo.count(); ++i)
        CheckLine(combo, combo.itemText(i), {room.width(), combo.height()}, faults);
}

void CheckLineEdit(const QLineEdit& edit, QStringList& faults) {
    const QRect room = edit.contentsRect().marginsRemoved(edit.textMargins());
    CheckLine(edit, edit.text(), {room.width() - 2 * kEditMargin, edit.height()}, faults);
}

void CheckList(const QListWidget& list, QStringList& faults) {
    for (int row = 0; row < list.count(); ++row)
        CheckLine(list, list.item(row)->text(), {list.viewport()->width(), list.viewport()->height()}, faults);
}

// The titles, and what is in sight. A person may widen a column; at first nothing should ask for it.
void CheckTree(const QTreeView& tree, QStringList& faults) {
    const int margin = tree.style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, &tree) + 1;
    const QHeaderView& header = *tree.header();
    const int titleMargin = tree.style()->pixelMetric(QStyle::PM_HeaderMargin, nullptr, &header);
    for (int column = 0; column < header.count() && !header.isHidden(); ++column) {
        const QString title = tree.model()->headerData(column, Qt::Horizontal).toString();
        CheckLine(header, title, {header.sectionSize(column) - 2 * titleMargin, header.height()}, faults);
    }
    const int height = tree.viewport()->height();
    for (QModelIndex row = tree.indexAt(QPoint(1, 1)); row.isValid() && tree.visualRect(row).top() < height;
         row = tree.indexBelow(row)) {
        for (int column = 0; column < header.count(); ++column) {
            const QModelIndex cell = row.siblingAtColumn(column);
            CheckLine(tree, cell.data().toString(), tree.visualRect(cell).size() - QSize(2 * margin, 0), faults);
        }
    }
}

template <class Control>
bool CheckAs(const QWidget& control, void (*check)(const Control&, QStringList&), QStringList& faults) {
    const auto* known = qobject_cast<const Control*>(&control);
    if (known != nullptr)
        check(*known, faults);
    return known != nullptr;
}

}  // namespace

QStringList TextFaults(const QWidget& control) {
    QStringList faults;
    [[maybe_unused]] const bool known =
        CheckAs<QLabel>(control, &CheckLabel, faults) || CheckAs<QAbstractButton>(control, &CheckButton, faults) ||
        CheckAs<QGroupBox>(control, &CheckGroupBox, faults) || CheckAs<QComboBox>(control, &CheckCombo, faults) ||
        CheckAs<QLineEdit>(control, &CheckLineEdit, faults) || CheckAs<QListWidget>(control, &CheckList, faults) ||
        CheckAs<QTreeView>(control, &CheckTree, faults);
    const auto* date = qobject_cast<const QAbstractSpinBox*>(&control);
    if (date != nullptr)
        CheckLineEdit(*date->findChild<QLineEdit*>(), faults);
    return faults;
}
