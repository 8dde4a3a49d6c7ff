// What is asked of an analysis: the fields of the panel.
#pragma once

#include <QWidget>
#include <functional>
#include <vector>

#include "platform/base/CString.h"

struct AnalysisRequest;
struct PointRequest;
class QFormLayout;
class QLineEdit;

// Place, day and standard are no fields: they are the settings in force.
class RequestForm : public QWidget {
public:
    explicit RequestForm(QWidget* parent);

    // Fills a request in. False, with the reason, when a field holds what it cannot; that field then has the focus.
    bool Read(AnalysisRequest& request, CString& reason) const;
    bool ReadAreas(PointRequest& request, CString& reason) const;
    // What stands in the fields of windows and in those of areas: an answer belongs to it.
    QStringList GetWindowTexts() const;
    QStringList GetAreaTexts() const;
    void Retranslate();

    std::function<void()> m_onChange;

private:
    struct Field {
        QLineEdit* edit;
        const wchar_t* label;
        const wchar_t* hint;
    };
    QLineEdit* Add(QFormLayout& form, const char* name, const wchar_t* label, const wchar_t* hint);

    std::vector<Field> m_fields;
    QLineEdit* m_windows;
    QLineEdit* m_need;
    QLineEdit* m_north;
    QLineEdit* m_proposed;
    QLineEdit* m_areas;
    QLineEdit* m_spacing;
};
