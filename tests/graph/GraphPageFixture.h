#pragma once

#include "graph/ui/DialogDataGraph.h"
#include "graph/ui/WidgetGraphBase.h"
#include "record/DataSet.h"
#include "tests/support/RecordingFixture.h"

#include <QButtonGroup>
#include <QTemporaryDir>

#include <cmath>
#include <memory>

namespace KOLT::Test {

/// A shown graph page with data.
class GraphPageFixture : public QObject
{
protected:
    /// Two traces from 100 s to 200 s, ten samples a second.
    void setUp()
    {
        m_settings = {};
        m_settings.isWhole = false;
        m_reported.clear();
        selectAllOf(device({"name='a' id='1' dataType='FLOAT' precision='1'",
                            "name='b' id='1' startByte='4' dataType='FLOAT'"}));
        m_dataSet = recording(100.0, 200.0, 1001);
        makePage();
        m_page->resize(700, 500);
        m_page->setData(m_dataSet.get());
        m_page->setTime(150.0);
        m_page->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_page.get()));
        QTRY_VERIFY(!m_page->isFeeding());
    }

    void makePage()
    {
        m_page = std::make_unique<DialogDataGraph>(m_profile, m_settings);
        connect(m_page.get(), &DialogDataGraph::signalSettings, this,
                [this](const GraphSettings& settings) { m_reported << settings; });
        m_page->setShown(true);
    }

    void selectAllOf(const QByteArray& devices)
    {
        m_page.reset(); // the page points into the profile
        QVERIFY(loadProfile(m_profile, devices));
        m_profile.select([](const ProfileParameter&) { return true; });
    }

    /// "p10", "p11" ... of message 1.
    void selectMany(int count)
    {
        QByteArray parameters;
        for (int i = 10; i < count + 10; ++i)
            parameters +=
                "<Parameter name='p" + QByteArray::number(i) + "' id='1' dataType='FLOAT'/>";
        selectAllOf("<Device name='D'>" + parameters + "</Device>");
        makePage();
    }

    /// A recording of `count` samples of two values.
    static std::unique_ptr<DataSet> recording(double start, double stop, int count)
    {
        auto made = std::make_unique<DataSet>();
        for (int i = 0; i < count; ++i)
            add(made->messages, 1, start + i * (stop - start) / (count - 1),
                floats(static_cast<float>(i % 100), 5.0F));
        made->startSeconds = start;
        made->stopSeconds = stop;
        return made;
    }

    const Graph& graph() const { return m_page->widget().graph(); }

    WidgetGraphBase* widget() const { return m_page->findChild<WidgetGraphBase*>(); }

    QAbstractButton* button(int id) const { return m_page->findChild<QButtonGroup*>()->button(id); }

    QPoint place(double seconds, int yFromTop) const
    {
        return {static_cast<int>(std::lround(graph().xOf(seconds))), yFromTop};
    }

    Profile m_profile;
    std::unique_ptr<DataSet> m_dataSet;
    GraphSettings m_settings;
    QList<GraphSettings> m_reported;
    std::unique_ptr<DialogDataGraph> m_page;
    QTemporaryDir m_directory;
};

} // namespace KOLT::Test
