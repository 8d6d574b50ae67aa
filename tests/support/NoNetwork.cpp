// Part of every test that opens windows: the map in them must not ask public servers.

#include <QByteArray>

namespace {

[[maybe_unused]] const bool isOffline = qputenv("KOLT_OFFLINE", QByteArray("1"));

} // namespace
