#pragma once

#include <QTest>

/// Ends a test function where the system has no such thing: links, devices, Python.
#ifdef Q_OS_WIN
#define KOLT_NEEDS(what) QSKIP("needs " what)
#else
#define KOLT_NEEDS(what) static_cast<void>(0)
#endif
