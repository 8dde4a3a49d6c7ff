// Files are named by what is in the pictures.
#include "Album.h"

#include <QApplication>
#include <QImageWriter>

#include "LayoutCheck.h"
#include "TitledPicture.h"
#include "platform/window/CWnd.h"

void Album::Take(const QString& name, const ModalWindow& window, QWidget* popup) {
    QCoreApplication::processEvents();  // whatever is still to be laid out
    auto& widget = *static_cast<QWidget*>(window.widget);
    for (const QString& fault : LayoutFaults(widget))
        m_faults << name + ": " + fault;
    QImageWriter writer(m_folder + "/" + name + ".png", "png");
    writer.setCompression(100);
    if (writer.write(WithColourTable(TitledPicture(widget, popup))))
        ++m_count;
    else
        m_faults << name + ": " + writer.errorString();
}

void Album::Show(const char* scene, const std::function<void()>& modal,
                 const std::function<void(const ModalWindow&)>& body) {
    bool shown = false;
    const ModalDriver driver([&](const ModalWindow& window) {
        if (!shown) {
            shown = true;
            body(window);
        }
        return int{IDCANCEL};
    });
    modal();
    if (!shown)
        m_faults << QString("%1: nothing was shown").arg(scene);
}

void Album::TakeBox(const QString& name, const std::function<void()>& cause) {
    Show(qPrintable(name), cause, [&](const ModalWindow& window) { Take(name, window); });
}
