#pragma once

#include "libs/tessamap/globe/TileId.h"

#include <QImage>
#include <QOpenGLFunctions>

#include <unordered_map>

namespace Tessa {

/// Textures of tiles; those not drawn for longest go first. All calls need the same current
/// context; forget() is for a context that is gone.
class TextureCache
{
public:
    /// `limit`: bytes of textures to keep. Those drawn in the current frame stay in any case.
    explicit TextureCache(std::size_t limit)
        : m_limit(limit)
    {
    }

    /// Begins a frame, and drops what is too many.
    void beginFrame(QOpenGLFunctions& gl);

    /// RGBA8888 or Grayscale8; linear, clamped to its edges. `revision`: told back by revisionOf().
    /// False when the driver refuses; there is no such texture then.
    bool upload(QOpenGLFunctions& gl, const TileId& tile, const QImage& image, int revision = 0);

    bool contains(const TileId& tile) const { return m_entries.contains(tile); }

    /// -1 when there is no texture.
    int revisionOf(const TileId& tile) const;

    /// Marks it as drawn; 0 when there is none.
    GLuint use(const TileId& tile);

    std::size_t size() const { return m_entries.size(); }

    void clear(QOpenGLFunctions& gl);

    void forget()
    {
        m_entries.clear();
        m_bytes = 0;
    }

private:
    struct Entry
    {
        GLuint texture = 0;
        int frame = 0;
        int revision = 0;
        std::size_t bytes = 0;
    };

    void drop(QOpenGLFunctions& gl, const TileId& tile);

    std::size_t m_limit;
    std::size_t m_bytes = 0;
    int m_frame = 0;
    std::unordered_map<TileId, Entry> m_entries;
};

} // namespace Tessa
