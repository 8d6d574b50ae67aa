#pragma once

#include "graph/Graph.h"

#include <QCoreApplication>
#include <QStringList>

namespace KOLT {

/// What is between the markers: a row of texts per visible trace.
struct MarkerTable
{
    Q_DECLARE_TR_FUNCTIONS(KOLT::MarkerTable)

public:
    QString heading;     ///< the time of each marker and the time between
    QStringList columns; ///< their titles; the first is the name, the second the unit
    QList<QStringList> rows;

    /// Lines of cells separated by tabs.
    QString text() const;
};

MarkerTable markerTableOf(const Graph& graph);

} // namespace KOLT
