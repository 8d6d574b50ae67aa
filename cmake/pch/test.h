// Headers that most tests include; see cmake/Layers.cmake.

#include "cmake/pch/core.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#ifdef QT_WIDGETS_LIB
#include <QApplication>
#include <QToolButton>
#include <QWidget>
#endif
