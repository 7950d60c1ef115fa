#pragma once

#include <cstddef>
#include <cstring>
#include <stdexcept>
#include <type_traits>
#include <vector>

// Values one after the other, as this machine has them in memory.
class ByteWriter {
public:
    template <typename T>
    void put(const T& value)
    {
        put(&value, 1);
    }
    template <typename T>
    void put(const T* first, std::size_t count)
    {
        static_assert(std::is_trivially_copyable_v<T>);
        if (count == 0)
            return;
        const std::size_t end = written.size();
        written.resize(end + count * sizeof(T));
        std::memcpy(written.data() + end, first, count * sizeof(T));
    }

    const std::vector<unsigned char>& bytes() const { return written; }

private:
    std::vector<unsigned char> written;
};

// Reads in the same order what anyone may have written: throws std::out_of_range where there is
// less than is asked for.
class ByteReader {
public:
    // Borrows the bytes.
    explicit ByteReader(const std::vector<unsigned char>& bytes)
        : next(bytes.data())
        , rest(bytes.size())
    {
    }

    template <typename T>
    T take()
    {
        T value{};
        take(&value, 1);
        return value;
    }
    template <typename T>
    void take(T* target, std::size_t count)
    {
        static_assert(std::is_trivially_copyable_v<T>);
        if (count > rest / sizeof(T))
            throw std::out_of_range("the bytes end early");
        if (count == 0)
            return;
        std::memcpy(target, next, count * sizeof(T));
        next += count * sizeof(T);
        rest -= count * sizeof(T);
    }

    bool isAtEnd() const { return rest == 0; }

private:
    const unsigned char* next;
    std::size_t rest;
};
