#include "app/project/Project.h"
#include "tests/support/ProfileFixture.h"
#include "tests/support/Rows.h"

using namespace KOLT;
using namespace KOLT::Test;

class TestProject : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void readSelects_data();
    void readSelects();
    void writtenFileFollowsTheProfile();
    void unreadableFileKeepsTheSelection();
    void failedWriteIsKnown();

private:
    QStringList selected() const
    {
        QStringList names;
        for (const ProfileParameter& parameter : m_profile.parameters()) {
            if (parameter.selected)
                names << parameter.name;
        }
        return names;
    }

    QString file(const QByteArray& content) const
    {
        const QString path = m_directory.filePath("project.xml");
        writeFile(path, content);
        return path;
    }

    QTemporaryDir m_directory;
    Profile m_profile;
    Project m_project;
};

void TestProject::init()
{
    QVERIFY(loadProfile(m_profile,
                        "<Device name='Z'><Parameter name='b'/><Parameter name='B'/></Device>"
                        "<Device name='A'><Parameter name='a'/></Device>"));
    m_project.setProfile(&m_profile);
    m_project.clear();
}

void TestProject::readSelects_data()
{
    const Rows<QByteArray, QStringList> row; // content, names
    row("two, one twice, one unknown",
        "<KoltProject><Parameters><Parameter name='a'/><Parameter name='b'/>"
        "<Parameter name='a'/><Parameter name='gone'/></Parameters></KoltProject>",
        {"b", "a"});
    row("any root", "<X><Parameters><Parameter name='a'/></Parameters></X>", {"a"});
    row("other elements",
        "<KoltProject><Parameters><parameter name='a'/><Item name='b'/></Parameters>"
        "<Parameter name='a'/></KoltProject>",
        {});
    row("no Parameters element", "<KoltProject/>", {});
}

void TestProject::readSelects()
{
    const auto [content, names] = fetchRow<QByteArray, QStringList>();
    m_profile.select([](const ProfileParameter&) { return true; });
    QVERIFY(m_project.read(file(content)) != 0);
    QCOMPARE(selected(), names);
}

void TestProject::writtenFileFollowsTheProfile()
{
    QVERIFY(m_project.read(
                file("<KoltProject><Parameters><Parameter name='a'/><Parameter name='b'/>"
                     "<Parameter name='B'/><Parameter name='gone'/></Parameters>"
                     "<CanProperties><Property id='z' value='1'/><Property id='k' value='2'/>"
                     "<Property id='z' value='3'/></CanProperties></KoltProject>")) != 0);
    const QString path = m_directory.filePath("written.xml");
    QVERIFY(m_project.write(path));
    QVERIFY(bool{m_project.lastWrite()});
    QString written = QString::fromUtf8(readFile(path));
    QVERIFY2(written.contains("\n        <Parameter "), qPrintable(written));
    const QString expected =
        "<KoltProject><Parameters><Parameter name=\"B\"/><Parameter name=\"b\"/>"
        "<Parameter name=\"a\"/></Parameters><CanProperties>";
    written.remove('\n').remove("    ");
    QVERIFY2(written.startsWith(expected), qPrintable(written));
    QVERIFY(written.indexOf("\"k\"") < written.indexOf("\"z\""));
    QCOMPARE(written.count("<Property"), 2);
    QVERIFY(!written.contains("\"1\""));

    QVERIFY(m_project.read(file("<KoltProject/>")) != 0); // drops the previous content
    QVERIFY(m_project.write(path));
    QVERIFY(!readFile(path).contains("<Property"));
}

void TestProject::unreadableFileKeepsTheSelection()
{
    m_profile.select([](const ProfileParameter& parameter) { return parameter.name == "a"; });
    QCOMPARE(m_project.read(m_directory.filePath("missing.xml")), 0);
    QCOMPARE(m_project.read(file("<KoltProject><Parameters>")), 0);
    QCOMPARE(selected(), QStringList{"a"});
    m_project.clear();
    QCOMPARE(selected(), QStringList());
}

void TestProject::failedWriteIsKnown()
{
    const DiagnosticsCapture output;
    QVERIFY(m_project.write(m_directory.filePath("missing/project.xml")));
    QVERIFY(!m_project.lastWrite());
    QVERIFY(output.text().contains("could not open file for writing !<"));
}

QTEST_GUILESS_MAIN(TestProject)
#include "tst_project.moc"
