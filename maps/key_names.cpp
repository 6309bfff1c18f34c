// SPDX-License-Identifier: MIT
#include "maps/key_names.h"

#include <algorithm>

namespace taviro {

void InitKeyTable() {
    const auto Keys = KeyCatalogue();
    std::transform(Keys.begin(), Keys.end(), KeyTable.begin(), [](const CatalogueKey& Key) {
        return KeyName{Key.szName, Key.nCode};
    });
}

std::vector<std::wstring> KeyNames() {
    std::vector<std::wstring> Names;
    for (const KeyName& Entry : KeyTable) {
        if (Entry.Name.empty()) break;
        Names.push_back(Entry.Name);
    }
    return Names;
}

bool KeyCodeAt(int32_t nIndex, int32_t& nCode) {
    if (nIndex < 0 || nIndex >= KEY_NAME_COUNT) return false;
    nCode = KeyTable[static_cast<size_t>(nIndex)].Code;
    return true;
}

int32_t KeyIndexOf(int32_t nCode) {
    const auto it = std::find_if(KeyTable.begin(), KeyTable.end(),
                                 [&](const KeyName& Entry) { return Entry.Code == nCode; });
    return it == KeyTable.end() ? -1 : static_cast<int32_t>(it - KeyTable.begin());
}

}  // namespace taviro
