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
    if (values_.size() <= place) values_.resize(place + 1);
    if (!values_[place]) values_[place] = std::make_shared<T>();
    return *static_cast<T*>(values_[place].get());
  }

 private:
  static inline std::size_t placesTaken_ = 0;
  std::vector<std::shared_ptr<void>> values_;
};

}  // namespace velura
