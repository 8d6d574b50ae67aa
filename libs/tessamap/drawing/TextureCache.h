#pragma once

#include "libs/tessamap/globe/TileId.h"

#include <QImage>
#include <QOpenGLFunctions>

#include <unordered_map>

namespace Tessa {

/// Textures of tiles, up to a limit of memory; the least recently drawn are dropped first. All
/// calls need the same current context, except forget(), which is for a context that is gone.
class TextureCache
{
public:
    /// `limit`: bytes of textures to keep. Textures of the last frame are never dropped.
    explicit TextureCache(std::size_t limit)
        : m_limit(limit)
    {
    }

    /// Starts a frame and drops textures beyond the limit.
    void beginFrame(QOpenGLFunctions& gl);

    /// `image`: RGBA8888 or Grayscale8. `revision`: for revisionOf(). The texture is sampled
    /// linearly and clamped to its edges. False when the driver fails; there is no texture then.
    bool upload(QOpenGLFunctions& gl, const TileId& tile, const QImage& image, int revision = 0);

    bool contains(const TileId& tile) const { return m_entries.contains(tile); }

    /// The revision passed to upload(); -1 without a texture.
    int revisionOf(const TileId& tile) const;

    /// Marks the texture as drawn and returns it; 0 without one.
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
