// What is asked of an analysis: the fields of the panel.
#pragma once

#include <QScrollArea>
#include <functional>
#include <optional>
#include <utility>
#include <vector>

#include "platform/base/CString.h"
#include "workbench/commands/AskedFilm.h"
#include "workbench/commands/AskedReport.h"

struct AnalysisRequest;
struct DayRequest;
struct PlanRules;
struct PointRequest;
class QCheckBox;
class QFormLayout;
class QLabel;
class QLineEdit;
class QToolButton;

// A field's name, and what stands in it.
using KeptField = std::pair<CString, CString>;

// Place, day and standard are no fields: they are the settings in force. What few ask for is folded away; the button
// that unfolds it tells how much of it is filled in. Where there is no room for all fields they scroll by themselves,
// and the one that has the focus is in sight.
class RequestForm : public QScrollArea {
public:
    explicit RequestForm(QWidget* parent);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

    // Fills a request in. False, with the reason, when a field holds what it cannot; that field then has the focus. An
    // empty reason has been told already.
    bool Read(AnalysisRequest& request, CString& reason) const;
    bool ReadAreas(PointRequest& request, CString& reason) const;
    // What stands in the fields of windows and in those of areas: an answer belongs to it.
    QStringList GetWindowTexts() const;
    QStringList GetAreaTexts() const;
    // What the fields say of a report and of a film, but not where it goes.
    AskedReport GetReport() const;
    AskedFilm GetFilm() const;
    // Degrees; none when the field holds no number.
    std::optional<double> GetNorth() const;
    // All fields, and those of another time: names that are no fields are passed over.
    std::vector<KeptField> GetKept() const;
    void SetKept(const std::vector<KeptField>& kept);
    QWidget& GetFirst() const;
    void Retranslate();

    std::function<void()> m_onChange;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Field {
        QLineEdit* edit;
        QLabel* label;
        const wchar_t* text;
        const wchar_t* hint;
        const wchar_t* tip;
    };
    QLineEdit* Add(QFormLayout& form, const char* name, const wchar_t* text, const wchar_t* hint, const wchar_t* tip);
    void BuildMore();
    void TakeChange();
    void ShowFolded();
    bool ReadDay(DayRequest& request) const;
    bool ReadPlan(PlanRules& rules) const;

    std::vector<Field> m_fields;
    QLineEdit* m_windows;
    QLineEdit* m_need;
    QLineEdit* m_north;
    QLineEdit* m_proposed;
    QLineEdit* m_areas;
    QLineEdit* m_spacing;
    QToolButton* m_fold;
    QWidget* m_more;
    QLineEdit* m_facing;
    QLineEdit* m_sill;
    QLineEdit* m_windowHeight;
    QLineEdit* m_storeys;
    QLineEdit* m_altitude;
    QCheckBox* m_scope;
    QLineEdit* m_project;
    QLineEdit* m_author;
    QLineEdit* m_every;
    QLineEdit* m_size;
};
