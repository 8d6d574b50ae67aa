#pragma once

#include <QMatrix4x4>

#include <vector>

namespace TUSK {

/// A stack of matrices, of which the top one transforms vertices.
class MatrixStack
{
public:
    const QMatrix4x4& top() const { return m_matrices.back(); }

    void push() { m_matrices.push_back(m_matrices.back()); }

    /// Does nothing if there is only one.
    void pop()
    {
        if (m_matrices.size() > 1)
            m_matrices.pop_back();
    }

    void load(const QMatrix4x4& matrix) { m_matrices.back() = matrix; }

    void multiply(const QMatrix4x4& matrix) { m_matrices.back() *= matrix; }

private:
    std::vector<QMatrix4x4> m_matrices{QMatrix4x4()};
};

} // namespace TUSK
