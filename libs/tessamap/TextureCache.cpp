#include "libs/tessamap/TextureCache.h"

#include <algorithm>
#include <vector>

namespace Tessa {

void TextureCache::beginFrame(QOpenGLFunctions& gl)
{
    if (m_entries.size() > m_limit) {
        std::vector<std::pair<int, TileId>> byAge;
        for (const auto& [tile, entry] : m_entries) {
            if (entry.frame < m_frame) // not drawn in the frame before
                byAge.emplace_back(entry.frame, tile);
        }
        const std::size_t excess = std::min(m_entries.size() - m_limit, byAge.size());
        std::ranges::nth_element(byAge, byAge.begin() + static_cast<std::ptrdiff_t>(excess), {},
                                 &std::pair<int, TileId>::first);
        for (std::size_t i = 0; i < excess; ++i) {
            const auto entry = m_entries.find(byAge[i].second);
            gl.glDeleteTextures(1, &entry->second.texture);
            m_entries.erase(entry);
        }
    }
    ++m_frame;
}

void TextureCache::upload(QOpenGLFunctions& gl, const TileId& tile, const QImage& image,
                          int revision)
{
    Entry& entry = m_entries[tile];
    if (entry.texture == 0)
        gl.glGenTextures(1, &entry.texture);
    entry.frame = m_frame;
    entry.revision = revision;
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
    m_entries.clear();
}

} // namespace Tessa
