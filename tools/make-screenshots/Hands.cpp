// Events as the toolkit's test library makes them.
#include "Hands.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QComboBox>
#include <QLineEdit>
#include <QTest>

QWidget& ControlOf(const ModalWindow& window, int id) {
    auto* control = static_cast<QWidget*>(window.widget)->findChild<QWidget*>(QString("IDC_%1").arg(id));
    if (control == nullptr)
        throw std::logic_error("no such control");
    return *control;
}

void Click(const ModalWindow& window, int id) {
    auto& button = ControlAs<QAbstractButton>(window, id);
    constexpr int kMark = 8;  // where radio buttons and check boxes have it
    QTest::mouseClick(&button, Qt::LeftButton, {}, QPoint(kMark, button.height() / 2));
}

void Type(const ModalWindow& window, int id, const QString& text) {
    auto& edit = ControlAs<QLineEdit>(window, id);
    edit.setFocus();
    edit.selectAll();
    if (text.isEmpty())
        QTest::keyClick(&edit, Qt::Key_Delete);
    else
        QTest::keyClicks(&edit, text);
}

void TypeDigits(const ModalWindow& window, int id, const QString& digits) {
    auto& edit = ControlAs<QLineEdit>(window, id);
    edit.setFocus();
    edit.home(false);
    QTest::keyClicks(&edit, digits);
}

void Choose(const ModalWindow& window, int id, int entry) {
    auto& combo = ControlAs<QComboBox>(window, id);
    OpenList(window, id);
    combo.view()->setCurrentIndex(combo.model()->index(entry, 0));
    QTest::keyClick(combo.view(), Qt::Key_Return);
}

QWidget& OpenList(const ModalWindow& window, int id) {
    auto& combo = ControlAs<QComboBox>(window, id);
    combo.setFocus();
    combo.showPopup();
    return *combo.view()->window();
}

void CloseList(const ModalWindow& window, int id) {
    ControlAs<QComboBox>(window, id).hidePopup();
}
