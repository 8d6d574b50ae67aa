#pragma once

#include "library/archive/Manifest.h"

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace KOLT::Library {

/// A record file of a card, from its header.
struct CardFile
{
    ManifestFile file; ///< without hash
    QString path;
    quint32 unit = 0; ///< of a damaged header: that of its neighbours
    int cycle = 0;    ///< in the order of the files; another one for each unit
};

struct CardFacts
{
    std::vector<CardFile> files; ///< by cycle, then in name order
    qint64 bytes = 0;
    std::shared_ptr<const void> protection; ///< nothing is written to the card meanwhile
};

/// The record files of a folder, as the listing of a card finds them; none when it cannot be read.
std::optional<CardFacts> listCard(const QString& folder, const std::function<void()>& onFile = {});

} // namespace KOLT::Library
