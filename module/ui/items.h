#pragma once
#include "OdString.h"
#include <cstdint>
#include <optional>

namespace ui {

/// A colour as 0xRRGGBB.
using Color = std::uint32_t;

/// The items of a combo box or list box, counted from 0; -1 is no item. They stay in the order in which they
/// were added. An index of no item throws std::out_of_range.
class Items {
public:
  /// `data` is the caller's own; `swatch` is shown before the text, by a combo box that is drawn by its owner
  /// (CBS_OWNERDRAWFIXED | CBS_HASSTRINGS). Gives the index.
  virtual int add(const OdString& text, std::intptr_t data = 0, std::optional<Color> swatch = {}) = 0;
  virtual void clear() = 0;
  virtual int count() const = 0;
  virtual OdString text(int index) const = 0;
  virtual std::intptr_t data(int index) const = 0;
  virtual int selection() const = 0;
  /// -1 selects none.
  virtual void select(int index) = 0;

protected:
  ~Items() = default;
};

} // namespace ui
