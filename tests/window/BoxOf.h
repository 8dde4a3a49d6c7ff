// The real box behind what a driver is told.
#pragma once

#include <QMessageBox>

#include "platform/window/ModalDriver.h"

inline QMessageBox* BoxOf(const ModalWindow& window) {
    return static_cast<QMessageBox*>(static_cast<QWidget*>(window.widget));
}
