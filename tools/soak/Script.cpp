#include "tools/soak/Script.h"

#include "tools/soak/Hand.h"

#include <QElapsedTimer>
#include <QMainWindow>
#include <QTreeWidget>

#include <memory>

namespace KOLT::Soak {

namespace {

constexpr QSize usualSize(1300, 850);

QTreeWidget* cycles()
{
    return qobject_cast<QTreeWidget*>(Hand::named("cyclesTree"));
}

/// The lines with a cycle, without the headings of the days.
std::vector<QTreeWidgetItem*> cycleItems()
{
    std::vector<QTreeWidgetItem*> items;
    const QTreeWidget* const tree = cycles();
    for (int i = 0; tree != nullptr && i < tree->topLevelItemCount(); ++i) {
        QTreeWidgetItem* const item = tree->topLevelItem(i);
        if (item->flags().testFlag(Qt::ItemIsSelectable))
            items.push_back(item);
    }
    return items;
}

bool clickItem(QTreeWidgetItem* item)
{
    QTreeWidget* const tree = item != nullptr ? item->treeWidget() : nullptr;
    if (tree == nullptr)
        return false;
    tree->scrollToItem(item);
    return Hand::clickAt(tree->viewport(), tree->visualItemRect(item).center());
}

Step chooseCycle(std::size_t number)
{
    return {QStringLiteral("choose cycle %1").arg(number), [number] {
                const std::vector<QTreeWidgetItem*> items = cycleItems();
                return number < items.size() && clickItem(items[number]);
            }};
}

Step chooseFlight(std::size_t number)
{
    return {QStringLiteral("choose a flight of cycle %1").arg(number), [number] {
                const std::vector<QTreeWidgetItem*> items = cycleItems();
                return number < items.size() && items[number]->childCount() > 0 &&
                       clickItem(items[number]->child(items[number]->childCount() - 1));
            }};
}

/// Choices settle for half a second before they are loaded.
void append(std::vector<Step>& steps, std::vector<Step> more)
{
    for (Step& step : more)
        steps.push_back(std::move(step));
}

std::vector<Step> loaded(Step choice)
{
    return {std::move(choice), pause(700), untilIdle()};
}

Step resize(QSize size)
{
    return {QStringLiteral("resize"), [size] {
                Hand::mainWindow()->resize(size);
                return true;
            }};
}

constexpr const char* pages[] = {"Data",          "Graph",         "Fault Matrix", "Limit/Warning",
                                 "Warning Lamps", "Tow Statistic", "EMU View"};

Step page(const char* name)
{
    return {QStringLiteral("page ") + QLatin1String(name),
            [name] { return Hand::tab(QLatin1String(name)); }};
}

/// Wheel and drag, as zooms and pans.
Step move(const char* widget)
{
    return {QStringLiteral("move in %1").arg(QLatin1String(widget)), [widget] {
                QWidget* const found = Hand::ofClass(widget);
                if (found == nullptr)
                    return false;
                const QPoint middle = found->rect().center();
                for (const int steps : {2, 1, -2, -1})
                    Hand::wheel(found, steps);
                Hand::drag(found, middle, middle - QPoint(80, 30));
                Hand::drag(found, middle - QPoint(80, 30), middle);
                return true;
            }};
}

Step moveTo(double position)
{
    return {QStringLiteral("another position"), [position] {
                QWidget* const slider = Hand::withTip("Position within the loaded data");
                return slider != nullptr &&
                       Hand::clickAt(slider, QPoint(static_cast<int>(slider->width() * position),
                                                    slider->height() / 2));
            }};
}

} // namespace

Step pause(int milliseconds)
{
    return {QStringLiteral("pause"),
            [milliseconds, clock = std::make_shared<QElapsedTimer>()] {
                if (!clock->isValid())
                    clock->start();
                return clock->hasExpired(milliseconds);
            },
            true};
}

Step untilIdle()
{
    return {QStringLiteral("wait for the load"), [] { return Hand::isIdle(); }};
}

std::vector<Step> stepsOfCard(const Places& places, int round)
{
    std::vector<Step> steps{{QStringLiteral("activate the window"), [] {
                                 Hand::mainWindow()->activateWindow();
                                 return Hand::mainWindow()->isActiveWindow();
                             }}};
    for (const char* card : {"short", "long"}) {
        const QString folder = places.cards + QLatin1Char('/') + QLatin1String(card);
        append(steps,
               {{QStringLiteral("menu of files"),
                 [] { return Hand::openMenu(QStringLiteral("File")); }},
                {QStringLiteral("open a folder"),
                 [] { return Hand::menuEntry(QStringLiteral("Open Data Folder")); }},
                {QStringLiteral("choose the card"), [folder] { return Hand::choosePath(folder); }},
                pause(500),
                untilIdle(),
                {QStringLiteral("list of cycles"),
                 [] { return Hand::tab(QStringLiteral("Cycles")); }}});
        append(steps, loaded(chooseCycle(0)));
        append(steps, loaded(chooseFlight(0)));
    }
    append(steps, loaded(chooseCycle(1)));
    append(steps, loaded(chooseFlight(1)));
    append(
        steps,
        {{QStringLiteral("list of files"), [] { return Hand::tab(QStringLiteral("Raw Data")); }},
         {QStringLiteral("choose a file"),
          [round] {
              auto* const tree = qobject_cast<QTreeWidget*>(Hand::named("rawDataTree"));
              if (tree == nullptr)
                  return false;
              std::vector<QTreeWidgetItem*> files;
              for (int i = 0; i < tree->topLevelItemCount(); ++i) {
                  if (tree->topLevelItem(i)->flags().testFlag(Qt::ItemIsSelectable))
                      files.push_back(tree->topLevelItem(i));
              }
              return !files.empty() &&
                     clickItem(files[static_cast<std::size_t>(round) % files.size()]);
          }},
         pause(700),
         untilIdle(),
         {QStringLiteral("list of cycles"), [] { return Hand::tab(QStringLiteral("Cycles")); }}});
    append(steps, loaded(chooseCycle(1)));
    return steps;
}

std::vector<Step> stepsOfPages()
{
    constexpr int replayMilliseconds = 1500;
    std::vector<Step> steps;
    for (const QSize size : {QSize(1000, 700), usualSize}) {
        steps.push_back(resize(size));
        for (const char* name : pages)
            append(steps, {page(name), pause(150), moveTo(0.3), moveTo(0.6)});
    }
    for (const char* name : {"Graph", "EMU View", "Data"}) {
        const auto replay = [](const char* text) {
            return Step{QLatin1String(text), [text] { return Hand::button(QLatin1String(text)); },
                        true};
        };
        append(steps, {page(name), replay("Replay Start"), pause(replayMilliseconds),
                       replay("Replay Pause"), replay("Replay Stop")});
    }
    append(steps,
           {page("Graph"),
            pause(300),
            move("KOLT::WidgetGraph"),
            {QStringLiteral("zoom out"), [] { return Hand::button(QStringLiteral("Zoom 1:1")); }},
            move("KOLT::WidgetMap"),
            {QStringLiteral("whole flight"),
             [] { return Hand::button(QStringLiteral("Show the whole flight (F)")); }},
            {QStringLiteral("overview"), [] { return Hand::click(Hand::named("overviewButton")); }},
            pause(300),
            {QStringLiteral("back from the overview"),
             [] { return Hand::click(Hand::named("overviewButton")); }},
            page("Data")});
    return steps;
}

std::vector<Step> scriptOfRound(const Places& places, int round)
{
    std::vector<Step> steps;
    append(steps, stepsOfCard(places, round));
    append(steps, stepsOfPages());
    append(steps, stepsOfFiles(places));
    append(steps, stepsOfLibrary(places, round));
    append(steps, stepsOfMenus(places, round));
    append(steps, {{QStringLiteral("close all windows"),
                    [] {
                        Hand::closeOthers();
                        return true;
                    }},
                   pause(1000),
                   untilIdle()});
    return steps;
}

} // namespace KOLT::Soak
