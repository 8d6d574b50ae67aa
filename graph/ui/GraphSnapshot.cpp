#include "graph/ui/GraphSnapshot.h"

#include "graph/ui/DialogDataGraph.h"
#include "ui/DialogFolders.h"
#include "ui/Messages.h"
#include "ui/SaveDialog.h"

#include <QBuffer>
#include <QFileInfo>
#include <QPixmap>

namespace KOLT {

void saveSnapshot(QWidget* page)
{
    const QPixmap picture = page->grab();
    const auto folderKind = QStringLiteral("Snapshot");
    const QString path = askForSavePath(
        page, DialogDataGraph::tr("Save Snapshot"),
        DialogFolders::proposal(folderKind, QStringLiteral("./snapshot.bmp")),
        DialogDataGraph::tr("BMP File (*.bmp);;All Files (*.*)"), QStringLiteral("bmp"));
    DialogFolders::note(folderKind, path);
    if (path.isEmpty())
        return;
    QByteArray content;
    QBuffer buffer(&content);
    buffer.open(QIODevice::WriteOnly);
    const QByteArray suffix = QFileInfo(path).suffix().toLatin1();
    if (!picture.save(&buffer, suffix.isEmpty() ? "BMP" : suffix.constData())) {
        Messages::warn(page, DialogDataGraph::tr(
                                 "The picture was not saved: there is no picture format for\n%1\n"
                                 "Use a name that ends with .bmp, .png or .jpg.")
                                 .arg(path));
        return;
    }
    Messages::saveFile(page, path, content);
}

} // namespace KOLT
