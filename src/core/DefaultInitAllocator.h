#pragma once
// An allocator whose containers leave new elements of a trivial type as they are found, so
// that a buffer a decoder is about to overwrite whole is not first filled with zeros.
#include <memory>
#include <type_traits>
#include <utility>

namespace lumivex {

template <typename T>
class DefaultInitAllocator : public std::allocator<T> {
  public:
    template <typename U>
    struct rebind {
        using other = DefaultInitAllocator<U>;
    };

    DefaultInitAllocator() noexcept = default;
    template <typename U>
    DefaultInitAllocator(const DefaultInitAllocator<U>& other) noexcept
        : std::allocator<T>(other) {}

    template <typename U>
    void construct(U* p) noexcept(std::is_nothrow_default_constructible_v<U>) {
        ::new (static_cast<void*>(p)) U;
    }
    template <typename U, typename... Args>
    void construct(U* p, Args&&... args) {
        std::allocator_traits<std::allocator<T>>::construct(static_cast<std::allocator<T>&>(*this),
                                                            p, std::forward<Args>(args)...);
    }
};

}  // namespace lumivex
