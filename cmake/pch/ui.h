// Headers that most faces include; see cmake/Layers.cmake.

#include "cmake/pch/core.h"

#include <QAction>
#include <QBoxLayout>
#include <QDialog>
#include <QEvent>
#include <QLabel>
#include <QOpenGLFunctions>
#include <QOpenGLWidget>
#include <QPainter>
#include <QTimer>
#include <QToolButton>
#include <QWidget>
