// The program's picture: the sun beside a house and its shadow.
#pragma once

#include <QIcon>

QIcon WindowIcon();
