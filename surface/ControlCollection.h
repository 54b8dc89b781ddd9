#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/Object.h"
#include "surface/Widget.h"

namespace kelmora {

class UserControl;

// A user control's widgets, in creation order, which for a built form is
// the order of its form table. It lists every widget of the control,
// including those inside Frames. Indexed access counts from 0.
//
// Failures follow the run time's collections: an index outside the
// collection fails with 9, a name that is not there with 5, a name already
// taken with 457.
class ControlCollection : public Object {
 public:
  explicit ControlCollection(UserControl& owner) : mOwner(&owner) {}

  std::string TypeName() const override { return "Controls"; }

  int32_t Count() const { return static_cast<int32_t>(mWidgets.size()); }
  const std::shared_ptr<Widget>& Item(int32_t index) const;
  // The single widget of that name, or the first member of that array.
  const std::shared_ptr<Widget>& Item(std::string_view name) const;
  const std::shared_ptr<Widget>& Item(std::string_view name, int16_t index) const;
  // The widgets of one name in creation order; empty when there is none.
  const std::vector<std::shared_ptr<Widget>>& members(std::string_view name) const;
  // Like Item, but nothing instead of a failure.
  std::shared_ptr<Widget> find(std::string_view name, int16_t index = Widget::kNoIndex) const;

  // Creates the control registered under `identifier` and places it, hidden,
  // on the owner's surface under `name`. Unknown identifiers fail with 429.
  std::shared_ptr<Widget> Add(const std::string& identifier, const std::string& name);
  // Takes every widget of that name off the form, together with what stands
  // inside it. A user control taken off raises its Terminate first.
  void Remove(const std::string& name);

  auto begin() const { return mWidgets.begin(); }
  auto end() const { return mWidgets.end(); }

 private:
  friend class UserControl;

  // Places a new widget; a name and index already taken fail with 457.
  void adopt(const std::shared_ptr<Widget>& widget, const std::string& name, int16_t index,
             Widget* container);
  // Lets go of every widget, clearing their back references.
  void detachAll();

  // The members of each name, in creation order: frames look their widgets
  // up by name on every keystroke.
  struct NameHash {
    using is_transparent = void;
    // FNV-1a: names are a few letters long, and this is cheaper than the
    // library's general-purpose hash for them.
    size_t operator()(std::string_view name) const {
      uint64_t hash = 14695981039346656037ull;
      for (char c : name) hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211ull;
      return static_cast<size_t>(hash);
    }
  };
  // The members of one name in creation order, and the members of an array
  // by Index (an empty slot where no member has that Index).
  struct Members {
    std::vector<std::shared_ptr<Widget>> all;
    std::vector<const std::shared_ptr<Widget>*> byIndex;
  };
  using ByName = std::unordered_map<std::string, Members, NameHash, std::equal_to<>>;
  const Members* membersOf(std::string_view name) const;
  const std::vector<std::shared_ptr<Widget>>* named(std::string_view name) const;
  static void reindex(Members& members);

  UserControl* mOwner;
  std::vector<std::shared_ptr<Widget>> mWidgets;
  ByName mByName;
  // The names looked up last: a frame asks for the same few arrays over and
  // over. Emptied whenever the collection changes.
  mutable std::array<std::pair<std::string_view, const Members*>, 16> mRecent{};
  mutable size_t mNextRecent = 0;
};

}  // namespace kelmora
