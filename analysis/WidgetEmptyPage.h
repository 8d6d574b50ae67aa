#pragma once

#include "analysis/DataPage.h"

#include <QWidget>

namespace KOLT {

/// The place of a page that this version does not have: says so and shows no data.
class WidgetEmptyPage : public QWidget, public DataPage
{
    Q_OBJECT

public:
    explicit WidgetEmptyPage(const QString& title, QWidget* parent = nullptr);

protected:
    void dropData() override {}

    void showData() override {}

    void showTime() override {}
};

} // namespace KOLT
