#pragma once

#include "framework/objects/Event.h"
#include "platform/IControl.h"
#include "platform/IPlaced.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace portico {

struct ListColumn {
  String Heading;
  std::int32_t Characters = 10; ///< the room that the column begins with
  bool IsNumber = false;        ///< its cells stand at the right
};

/// The rows of a list, counted from 0. A list asks for those that are seen, each time they are.
class IListRows {
public:
  virtual ~IListRows() = default;

  virtual std::int32_t Count() const = 0;
  /// A line end in it is shown as a space.
  virtual String Cell(std::int32_t row, std::int32_t column) const = 0;
};

/// Rows under headings, one of which can be selected. In a dialog it is laid out by the platform, in a window it is
/// placed.
class IListView : public virtual IControl, public virtual ITabOrder, public virtual IPlaced {
public:
  /// None to begin with.
  virtual void Columns(const std::vector<ListColumn>& columns) = 0;
  /// Nothing is selected then. The list keeps them; with null it has no rows.
  virtual void Rows(const std::shared_ptr<const IListRows>& rows) = 0;
  /// To be called when the rows have changed, or their number has. What was selected stays so, if it is still there.
  virtual void Refresh() = 0;

  /// As at the last `Rows` or `Refresh`.
  virtual std::int32_t ListCount() const = 0;
  /// -1 if nothing is selected. Selecting a row brings it into sight. One that is not there raises `BadPropertyValue`.
  virtual std::int32_t ListIndex() const = 0;
  virtual void ListIndex(std::int32_t newValue) = 0;

  /// Fires whenever another row is selected, whoever selects it.
  virtual Event<>& Click() = 0;
  /// The user has chosen the selected row, by Return or a double click. Return presses no default button then.
  virtual Event<>& Choose() = 0;
};

} // namespace portico
