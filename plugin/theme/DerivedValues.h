#pragma once
// Values of any type that are made of the theme in force: bitmaps of titles, pictures of meters, recoloured scales.

#include <cstddef>
#include <memory>
#include <vector>

namespace velura {

/// One value per type. Main thread only.
class DerivedValues {
 public:
  /// The value of type `T`, default made on first use.
  template <class T>
  T& of() {
    static const std::size_t place = placesTaken_++;
    while (values_.size() <= place) values_.emplace_back(nullptr, [](void*) {});
    if (!values_[place]) values_[place] = Value(new T(), [](void* value) { delete static_cast<T*>(value); });
    return *static_cast<T*>(values_[place].get());
  }

 private:
  using Value = std::unique_ptr<void, void (*)(void*)>;

  static inline std::size_t placesTaken_ = 0;
  std::vector<Value> values_;
};

}  // namespace velura
