// The place dialog on its stage.
#pragma once

#include "zone/EditorStage.h"
#include "zone/OrvoPlaceDlg.h"

// What a test sees while the dialog is open.
struct OpenPlaces {
    const ModalWindow& window;
    OrvoPlaceDlg& dialog;
    QListWidget& provinces;
    QListWidget& cities;

    // City, longitude, latitude and comment as they are shown.
    Texts Fields() const {
        Texts fields;
        for (const int id : {2011, 2012, 2014, 2013})
            fields.push_back(ControlOf<QLineEdit>(window, id)->text().toStdString());
        return fields;
    }
};

class PlaceStage : public EditorStage {
protected:
    using OnDialog = std::function<void(OrvoPlaceDlg&)>;
    using OnOpen = std::function<void(const OpenPlaces&)>;

    static void InPlaces(const ModalWindow& window, const OnOpen& body) {
        auto* dialog = dynamic_cast<OrvoPlaceDlg*>(CWnd::FromHandlePermanent(reinterpret_cast<HWND>(window.widget)));
        auto* provinces = ControlOf<QListWidget>(window, 2022);
        auto* cities = ControlOf<QListWidget>(window, 2025);
        ASSERT_NE(dialog, nullptr);
        ASSERT_NE(provinces, nullptr);
        ASSERT_NE(cities, nullptr);
        body({window, *dialog, *provinces, *cities});
    }

    static INT_PTR ShowDialog(OrvoPlaceDlg& dialog, const OnOpen& body) {
        return Run([&dialog] { return dialog.DoModal(); },
                   [&body](const ModalWindow& window) { InPlaces(window, body); });
    }
    // Shows a new dialog for `body`, with what is done to it before and after.
    static INT_PTR Show(const OnOpen& body, const OnDialog& before = nullptr, const OnDialog& after = nullptr) {
        OrvoPlaceDlg dialog;
        if (before)
            before(dialog);
        const INT_PTR result = ShowDialog(dialog, body);
        if (after)
            after(dialog);
        return result;
    }
    // Presses the button that opens the editor, and works in it.
    static void EditFrom(const OpenPlaces& places, const std::function<void(const OpenEditor&)>& body) {
        int editors = 0;
        const ModalDriver driver([&](const ModalWindow& window) {
            ++editors;
            EXPECT_EQ(window.owner, places.dialog.GetSafeHwnd()) << "over the place dialog";
            In(window, body);
            return IDCANCEL;
        });
        Press(places.window, 2021);
        EXPECT_EQ(editors, 1);
    }
};
