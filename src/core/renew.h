#pragma once
// Storage handed over from one value to the next: a record used case after
// case is made what a freshly made record is, while the members named keep
// their storage (emptied) for the values to come. Any member not named takes
// its fresh value, so a member added later cannot carry a value from one
// case into the next.
#include <utility>

namespace tormel {

// `to` takes the storage of `from` and is emptied. Lists and texts use this
// one; a record made of lists gives an overload of its own, found by
// argument-dependent lookup.
template <class List>
void TakeStorage(List& to, List& from) {
    to.swap(from);
    to.clear();
}

template <class Record, class... Members>
void RenewKeeping(Record& record, Members... members) {
    Record fresh;
    (TakeStorage(fresh.*members, record.*members), ...);
    record = std::move(fresh);
}

}  // namespace tormel
