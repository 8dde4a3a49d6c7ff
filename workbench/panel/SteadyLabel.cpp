// Measures what may stand in the label.
#include "workbench/panel/SteadyLabel.h"

#include <QEvent>
#include <algorithm>

SteadyLabel::SteadyLabel(QWidget* parent, int leastLines) : QLabel(parent), m_leastLines(leastLines) {
    setWordWrap(true);
    setAlignment(Qt::AlignLeft | Qt::AlignTop);
    SetChoices({});
}

void SteadyLabel::SetChoices(const QStringList& choices) {
    m_choices = choices;
    m_choices.removeDuplicates();
    m_heights.clear();
    QSizePolicy policy = sizePolicy();
    policy.setRetainSizeWhenHidden(m_leastLines > 0 || !m_choices.isEmpty());
    setSizePolicy(policy);
    updateGeometry();
}

int SteadyLabel::heightForWidth(int width) const {
    auto known = m_heights.find(width);
    if (known == m_heights.end()) {
        QLabel measure;
        measure.setFont(font());
        measure.setTextFormat(textFormat());
        measure.setTextInteractionFlags(textInteractionFlags());
        measure.setWordWrap(true);
        int height = m_leastLines * fontMetrics().lineSpacing();
        for (const QString& choice : m_choices) {
            measure.setText(choice);
            height = std::max(height, measure.heightForWidth(width));
        }
        known = m_heights.emplace(width, height).first;
    }
    return std::max(known->second, QLabel::heightForWidth(width));
}

QSize SteadyLabel::minimumSizeHint() const {
    const QSize own = QLabel::minimumSizeHint();
    return {own.width(), std::max(own.height(), m_leastLines * fontMetrics().lineSpacing())};
}

void SteadyLabel::changeEvent(QEvent* event) {
    if (event->type() == QEvent::FontChange)
        m_heights.clear();
    QLabel::changeEvent(event);
}
