#include "libs/tessamap/drawing/TextureCache.h"

#include <algorithm>
#include <vector>

namespace Tessa {

void TextureCache::beginFrame(QOpenGLFunctions& gl)
{
    if (m_bytes > m_limit) {
        std::vector<std::pair<int, TileId>> byAge;
        for (const auto& [tile, entry] : m_entries) {
            if (entry.frame < m_frame) // not drawn in the last frame
                byAge.emplace_back(entry.frame, tile);
        }
        std::ranges::sort(byAge, {}, &std::pair<int, TileId>::first);
        for (auto oldest = byAge.begin(); oldest != byAge.end() && m_bytes > m_limit; ++oldest)
            drop(gl, oldest->second);
    }
    ++m_frame;
}

void TextureCache::drop(QOpenGLFunctions& gl, const TileId& tile)
{
    const auto entry = m_entries.find(tile);
    gl.glDeleteTextures(1, &entry->second.texture);
    m_bytes -= entry->second.bytes;
    m_entries.erase(entry);
}

bool TextureCache::upload(QOpenGLFunctions& gl, const TileId& tile, const QImage& image,
                          int revision)
{
    // Clear errors of earlier calls. A lost context reports errors without end.
    constexpr int mostErrors = 16;
    for (int i = 0; i < mostErrors && gl.glGetError() != GL_NO_ERROR; ++i) {
    }
    Entry& entry = m_entries[tile];
    if (entry.texture == 0)
        gl.glGenTextures(1, &entry.texture);
    entry.frame = m_frame;
    entry.revision = revision;
    m_bytes -= entry.bytes;
    entry.bytes = static_cast<std::size_t>(image.sizeInBytes());
    m_bytes += entry.bytes;
    const bool isGray = image.format() == QImage::Format_Grayscale8;
    const GLenum format = isGray ? GL_LUMINANCE : GL_RGBA;
    gl.glBindTexture(GL_TEXTURE_2D, entry.texture);
    gl.glPixelStorei(GL_UNPACK_ALIGNMENT, isGray ? 1 : 4);
    gl.glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
    gl.glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    gl.glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
    gl.glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE);
    gl.glTexImage2D(GL_TEXTURE_2D, 0, static_cast<GLint>(format), image.width(), image.height(), 0,
                    format, GL_UNSIGNED_BYTE, image.constBits());
    if (gl.glGetError() == GL_NO_ERROR)
        return true;
    drop(gl, tile);
    return false;
}

int TextureCache::revisionOf(const TileId& tile) const
{
    const auto entry = m_entries.find(tile);
    return entry == m_entries.end() ? -1 : entry->second.revision;
}

GLuint TextureCache::use(const TileId& tile)
{
    const auto entry = m_entries.find(tile);
    if (entry == m_entries.end())
        return 0;
    entry->second.frame = m_frame;
    return entry->second.texture;
}

void TextureCache::clear(QOpenGLFunctions& gl)
{
    for (const auto& [tile, entry] : m_entries)
        gl.glDeleteTextures(1, &entry.texture);
    forget();
}

} // namespace Tessa
