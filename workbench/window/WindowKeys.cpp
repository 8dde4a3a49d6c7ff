// The words for what menus, panels and workbench/view/SceneView.h take, and the list that shows them.
#include "workbench/window/WindowKeys.h"

#include <QHeaderView>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "workbench/view/WidgetText.h"

const std::vector<KeyPart>& WindowKeys() {
    static const std::vector<KeyPart> parts = {
        {L"三维视图",
         {{L"左键拖动，方向键", L"旋转"},
          {L"中键拖动，Shift+左键拖动，Shift+方向键", L"平移"},
          {L"滚轮，+，-", L"缩放"},
          {L"Page Up，Page Down", L"俯视得更陡，更平"},
          {L"双击，Home", L"显示全部"},
          {L"1 2 3 4 5 6，T S E N W I", L"从上、南、东、北、西、东南看"},
          {L"7", L"从西南看"},
          {L"P", L"平行投影，透视"},
          {L"点击，空格（视图中央）", L"选取实体和窗"},
          {L".  ,", L"下一个、上一个实体"},
          {L"Esc", L"取消选取"}}},
        {L"太阳和日照分析",
         {{L"F6", L"太阳和阴影"},
          {L"滑块：方向键，Page Up，Page Down", L"改变时刻"},
          {L"滑块：空格", L"播放，暂停"},
          {L"F9", L"分析每个窗"},
          {L"Ctrl+L", L"到日照分析的第一栏"},
          {L"Ctrl+T", L"到窗的列表"},
          {L"Ctrl+R", L"写成报告"},
          {L"Ctrl+M", L"录成动画"},
          {L"Esc", L"取消正在做的事"},
          {L"时间线：方向键，Home，End", L"说出每个时段"}}},
        {L"面板和命令行",
         {{L"Tab，Shift+Tab", L"下一个、上一个控件"},
          {L"Ctrl+1", L"所有图层"},
          {L"Ctrl+2", L"所选实体"},
          {L"Ctrl+3", L"日照分析"},
          {L"图层列表：空格，F2，Ctrl+A", L"显示或隐藏，写上高度，显示全部"},
          {L"所选实体：Ctrl+C", L"复制一个值"},
          {L"命令行：Tab", L"补全"},
          {L"命令行：上下键，Esc", L"用过的命令，清空"},
          {L"F10，Alt", L"菜单"},
          {L"F1", L"这张表"}}},
        {L"图形文件",
         {{L"Ctrl+O", L"打开"},
          {L"F5", L"重新读入"},
          {L"Ctrl+S", L"保存"},
          {L"Ctrl+Shift+S", L"另存为"},
          {L"Ctrl+Shift+P", L"保存视图为图片"},
          {L"Ctrl+Q", L"退出"}}},
    };
    return parts;
}

namespace {

// Keys that are called the same everywhere stand as they are.
QString InLanguage(const wchar_t* text) {
    const QString plain = Shown(CString(text));
    for (const QChar each : plain)
        if (each.unicode() > 127)
            return ShownSay(text);
    return plain;
}

}  // namespace

KeysWindow::KeysWindow(QWidget* parent) : QDialog(parent), m_list(new QTreeWidget(this)) {
    setObjectName("KeysWindow");
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(m_list);
    m_list->setObjectName("KeysList");
    m_list->setFrameShape(QFrame::NoFrame);
    m_list->setColumnCount(2);
    m_list->setRootIsDecorated(false);
    m_list->setItemsExpandable(false);
    m_list->setIndentation(12);
    m_list->setHeaderHidden(true);
    m_list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    resize(640, 520);
    Retranslate();
}

void KeysWindow::Retranslate() {
    setWindowTitle(ShownSay(L"按键"));
    m_list->setAccessibleName(ShownSay(L"按键"));
    m_list->clear();
    for (const KeyPart& part : WindowKeys()) {
        auto* title = new QTreeWidgetItem(m_list, {ShownSay(part.title)});
        QFont bold = m_list->font();
        bold.setBold(true);
        title->setFont(0, bold);
        title->setFirstColumnSpanned(true);
        for (const KeyRow& row : part.rows)
            new QTreeWidgetItem(title, {InLanguage(row.keys), ShownSay(row.effect)});
    }
    m_list->expandAll();
    m_list->setCurrentItem(m_list->topLevelItem(0));
}
