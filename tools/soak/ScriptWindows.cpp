// The parts of a round that use windows besides the main window.
#include "tools/soak/Hand.h"
#include "tools/soak/Script.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QComboBox>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QTreeWidget>

namespace KOLT::Soak {

namespace {

constexpr int roundsOfLook = 10; ///< until the user wants another one

Step button(const QString& text, const QString& window = {})
{
    return {QStringLiteral("button \"%1\"").arg(text),
            [text, window] { return Hand::button(text, window); }};
}

Step openMenu(const QString& title)
{
    return {QStringLiteral("open the menu ") + title, [title] { return Hand::openMenu(title); }};
}

Step menuEntry(const QString& text)
{
    return {QStringLiteral("menu entry ") + text, [text] { return Hand::menuEntry(text); }};
}

Step tab(const QString& text)
{
    return {QStringLiteral("tab ") + text, [text] { return Hand::tab(text); }};
}

Step choosePath(const QString& path)
{
    return {QStringLiteral("choose ") + path, [path] { return Hand::choosePath(path); }};
}

Step untilExists(const QString& path)
{
    return {QStringLiteral("wait for ") + path, [path] { return QFileInfo::exists(path); }};
}

Step click(const char* name)
{
    return {QStringLiteral("click ") + QLatin1String(name),
            [name] { return Hand::click(Hand::named(name)); }};
}

/// Clicks the first line of a visible view of this name or class that can be chosen.
Step firstLine(const char* view)
{
    return {QStringLiteral("first line of ") + QLatin1String(view), [view] {
                QWidget* found = Hand::named(view);
                if (found == nullptr)
                    found = Hand::ofClass(view);
                auto* const list = qobject_cast<QAbstractItemView*>(found);
                if (list == nullptr)
                    return false;
                for (int row = 0; row < list->model()->rowCount(); ++row) {
                    const QModelIndex index = list->model()->index(row, 0);
                    if (index.flags().testFlag(Qt::ItemIsEnabled))
                        return Hand::line(list, index);
                }
                return false;
            }};
}

Step type(const char* field, const QString& text)
{
    return {QStringLiteral("type into ") + QLatin1String(field), [field, text] {
                auto* const edit = qobject_cast<QLineEdit*>(Hand::named(field));
                if (edit == nullptr || !edit->isEnabled())
                    return false;
                edit->setText(text);
                return true;
            }};
}

Step closeWindows()
{
    return {QStringLiteral("close windows"), [] {
                Hand::closeOthers();
                return true;
            }};
}

/// A file or folder that the round before has left.
Step remove(const QString& path)
{
    return {QStringLiteral("remove ") + path, [path] {
                return QFileInfo(path).isDir() ? QDir(path).removeRecursively()
                                               : !QFileInfo::exists(path) || QFile::remove(path);
            }};
}

void append(std::vector<Step>& steps, std::vector<Step> more)
{
    for (Step& step : more)
        steps.push_back(std::move(step));
}

} // namespace

std::vector<Step> stepsOfFiles(const Places& places)
{
    std::vector<Step> steps;
    for (const auto& [entry, suffix] :
         {std::pair("Export CSV File", "csv"), std::pair("Export Google KML File", "kml"),
          std::pair("Export GPX File", "gpx")}) {
        const QString path = places.out + QStringLiteral("/export.") + QLatin1String(suffix);
        append(steps, {remove(path), openMenu(QStringLiteral("Extras")),
                       menuEntry(QLatin1String(entry)), button(QStringLiteral("Export...")),
                       choosePath(path), untilExists(path), pause(300)});
    }
    const QString cases = places.out + QStringLiteral("/cases");
    append(steps, {remove(cases),
                   {QStringLiteral("make a folder"), [cases] { return QDir().mkpath(cases); }},
                   tab(QStringLiteral("Limit/Warning")),
                   pause(300),
                   firstLine("KOLT::EventTable"),
                   pause(200),
                   button(QStringLiteral("Case file")),
                   choosePath(cases),
                   {QStringLiteral("wait for the case file"),
                    [cases] {
                        return !QDir(cases).entryList(QDir::Dirs | QDir::NoDotAndDotDot).isEmpty();
                    }},
                   pause(300)});
    return steps;
}

std::vector<Step> stepsOfLibrary(const Places& places, int round)
{
    const QString importer = QStringLiteral("Import Card");
    const auto untilImported = Step{QStringLiteral("wait for the import"), [] {
                                        QWidget* const start = Hand::named("importStart");
                                        return start != nullptr && start->isEnabled();
                                    }};
    const auto yes = Step{QStringLiteral("confirm"), [] {
                              return qobject_cast<QMessageBox*>(Hand::front()) != nullptr &&
                                     Hand::button(QStringLiteral("Yes"));
                          }};
    std::vector<Step> steps{openMenu(QStringLiteral("Extras")),
                            menuEntry(QStringLiteral("Import Card...")),
                            type("importCard", places.cards + QStringLiteral("/long")),
                            type("importLibrary", places.library()),
                            click("importStart"),
                            pause(200),
                            untilImported,
                            button(QStringLiteral("Close"), importer),
                            tab(QStringLiteral("Library")),
                            pause(500),
                            untilIdle()};
    append(steps, {{QStringLiteral("evaluate what was not yet"),
                    [] {
                        Hand::click(Hand::named("updateLibrary"));
                        return true;
                    }},
                   pause(500),
                   untilIdle()});
    append(steps, {click("engineButton"), pause(300), tab(QStringLiteral("Episodes")),
                   click("copyLedger"), tab(QStringLiteral("Maintenance")),
                   button(QStringLiteral("Close"), QStringLiteral("Engine")),
                   tab(QStringLiteral("Cycles"))});
    append(steps,
           {openMenu(QStringLiteral("Extras")), menuEntry(QStringLiteral("Notes...")), pause(200)});
    if (round == 1)
        append(steps, {button(QStringLiteral("Cycle..."), QStringLiteral("Notes"))});
    else
        append(steps, {firstLine("recordingNotes"), pause(200),
                       button(QStringLiteral("Change..."), QStringLiteral("Notes"))});
    append(steps, {{QStringLiteral("write a note"),
                    [round] {
                        auto* const edit = Hand::front()->findChild<QPlainTextEdit*>();
                        if (edit == nullptr)
                            return false;
                        edit->setPlainText(QStringLiteral("Seen in round %1").arg(round));
                        return Hand::button(QStringLiteral("OK"));
                    }},
                   pause(300),
                   closeWindows(),
                   pause(100)});
    append(steps,
           {openMenu(QStringLiteral("Extras")), menuEntry(QStringLiteral("Import Card...")),
            click("importTakeBack"), firstLine("importList"), click("takeBack"), yes, pause(500),
            button(QStringLiteral("Close"), QStringLiteral("Imports of the Library")),
            button(QStringLiteral("Close"), importer),
            remove(places.library() + QStringLiteral("/trash"))});
    return steps;
}

std::vector<Step> stepsOfMenus(const Places& places, int round)
{
    std::vector<Step> steps;
    const auto show = [&](const char* menu, const char* entry) {
        append(steps, {openMenu(QLatin1String(menu)), menuEntry(QLatin1String(entry)), pause(300),
                       closeWindows(), pause(100)});
    };
    show("Extras", "Day Sheet");
    show("Extras", "Recording");
    show("Help", "About");
    show("Help", "Profile");
    append(steps, {click("helpButton"), pause(500), closeWindows(), pause(100)});
    const QString report = QStringLiteral("Engine Report");
    const QString pdf = places.out + QStringLiteral("/report.pdf");
    append(steps, {remove(pdf), openMenu(QStringLiteral("Extras")),
                   menuEntry(QStringLiteral("Engine Report...")),
                   button(QStringLiteral("Save as PDF..."), report), choosePath(pdf),
                   untilExists(pdf), pause(300), button(QStringLiteral("Close"), report)});
    const QString preferences = QStringLiteral("Preferences");
    append(steps,
           {openMenu(QStringLiteral("Extras")),
            menuEntry(preferences),
            pause(200),
            {QStringLiteral("other look and units"),
             [round] {
                 for (auto* box :
                      Hand::titled(QStringLiteral("Preferences"))->findChildren<QComboBox*>()) {
                     if (const int at = box->findText(QStringLiteral("Metric")); at >= 0)
                         box->setCurrentIndex(at + round % 2);
                     if (const int at = box->findText(QStringLiteral("Light")); at >= 0)
                         box->setCurrentIndex(at + round / roundsOfLook % 2);
                 }
                 return true;
             }},
            button(QStringLiteral("OK"), preferences),
            pause(300),
            untilIdle(),
            openMenu(QStringLiteral("Extras")),
            menuEntry(preferences),
            pause(200),
            button(QStringLiteral("Cancel"), preferences)});
    return steps;
}

} // namespace KOLT::Soak
