// A font of the toolkit's own for one class of widgets, as styles and desktops have it.
#pragma once

#include <QApplication>
#include <QFont>

// In force while it lives.
class ClassFont {
public:
    ClassFont(const char* widgetClass, int pointSize)
        : m_widgetClass(widgetClass), m_before(QApplication::font(widgetClass)) {
        QFont font = m_before;
        font.setPointSize(pointSize);
        font.setItalic(true);
        QApplication::setFont(font, m_widgetClass);
    }
    ~ClassFont() { QApplication::setFont(m_before, m_widgetClass); }
    ClassFont(const ClassFont&) = delete;
    ClassFont& operator=(const ClassFont&) = delete;

private:
    const char* m_widgetClass;
    QFont m_before;
};
