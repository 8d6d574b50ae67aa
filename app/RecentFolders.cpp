#include "app/RecentFolders.h"

#include "app/settings/SettingsStore.h"

namespace KOLT {

namespace {

QByteArray key(int index)
{
    return "RecentFolder" + QByteArray::number(index + 1);
}

} // namespace

RecentFolders::RecentFolders(SettingsStore& settings)
    : m_settings(settings)
{
    for (int i = 0; i < maxFolders; ++i) {
        const QString folder = QString::fromUtf8(m_settings.getText(key(i)));
        if (!folder.isEmpty())
            m_folders.push_back(folder);
    }
}

void RecentFolders::add(const QString& folder)
{
    m_folders.removeAll(folder);
    m_folders.push_front(folder);
    if (m_folders.size() > maxFolders)
        m_folders.resize(maxFolders);
    store();
}

void RecentFolders::remove(const QString& folder)
{
    m_folders.removeAll(folder);
    store();
}

void RecentFolders::store() const
{
    for (int i = 0; i < maxFolders; ++i)
        m_settings.setText(key(i), m_folders.value(i).toUtf8());
}

} // namespace KOLT
