#pragma once

#include <compare>
#include <cstddef>
#include <iterator>
#include <type_traits>

namespace KOLT {

/// Random-access iterator over a sequence that is read with operator[]. `Reference` is the result
/// of that operator.
template <typename Sequence, typename Reference>
class IndexIterator
{
public:
    using value_type = std::remove_cvref_t<Reference>;
    using difference_type = std::ptrdiff_t;
    using reference = Reference;
    using iterator_category = std::random_access_iterator_tag;

    IndexIterator() = default;

    IndexIterator(const Sequence& sequence, std::size_t index)
        : m_sequence(&sequence)
        , m_index(index)
    {
    }

    std::size_t index() const { return m_index; }

    reference operator*() const { return (*m_sequence)[m_index]; }

    std::remove_reference_t<Reference>* operator->() const { return &**this; }

    reference operator[](difference_type offset) const { return *(*this + offset); }

    IndexIterator& operator+=(difference_type offset)
    {
        m_index += static_cast<std::size_t>(offset);
        return *this;
    }

    IndexIterator& operator-=(difference_type offset) { return *this += -offset; }

    IndexIterator& operator++() { return *this += 1; }

    IndexIterator& operator--() { return *this -= 1; }

    IndexIterator operator++(int)
    {
        IndexIterator before = *this;
        ++*this;
        return before;
    }

    IndexIterator operator--(int)
    {
        IndexIterator before = *this;
        --*this;
        return before;
    }

    IndexIterator operator+(difference_type offset) const
    {
        return {*m_sequence, m_index + static_cast<std::size_t>(offset)};
    }

    friend IndexIterator operator+(difference_type offset, const IndexIterator& iterator)
    {
        return iterator + offset;
    }

    IndexIterator operator-(difference_type offset) const { return *this + -offset; }

    difference_type operator-(const IndexIterator& other) const
    {
        return static_cast<difference_type>(m_index - other.m_index);
    }

    bool operator==(const IndexIterator& other) const { return m_index == other.m_index; }

    auto operator<=>(const IndexIterator& other) const { return m_index <=> other.m_index; }

private:
    const Sequence* m_sequence = nullptr;
    std::size_t m_index = 0;
};

} // namespace KOLT
