# SPDX-License-Identifier: MIT
"""What a Windows program says of itself: its machine, its time stamp and its resources."""

import struct

MACHINES = {0x8664: "x64", 0x014C: "x86"}
RT_ICON, RT_GROUP_ICON, RT_VERSION, RT_MANIFEST = 3, 14, 16, 24
RESOURCES = 2  # the index of their directory in the optional header


class Executable:
    def __init__(self, path):
        self._bytes = path.read_bytes()
        start = struct.unpack_from("<I", self._bytes, 0x3C)[0]
        assert self._bytes[start:start + 4] == b"PE\0\0"
        machine, count, self.time_stamp, _, _, size = struct.unpack_from(
            "<HHIIIH", self._bytes, start + 4)
        self.machine = MACHINES[machine]
        optional = start + 24
        wide = struct.unpack_from("<H", self._bytes, optional)[0] == 0x20B
        self._directories = optional + (112 if wide else 96)
        self._sections = [struct.unpack_from("<4I", self._bytes, optional + size + 40 * i + 8)
                          for i in range(count)]

    def _offset(self, address):
        """Where in the file an address of the loaded program is."""
        for size, start, raw_size, raw in self._sections:
            if start <= address < start + max(size, raw_size):
                return raw + address - start
        raise ValueError(f"no section holds {address:#x}")

    def _entries(self, base, offset):
        named, numbered = struct.unpack_from("<HH", self._bytes, base + offset + 12)
        for i in range(named + numbered):
            yield struct.unpack_from("<II", self._bytes, base + offset + 16 + 8 * i)

    def resources(self, kind):
        """The contents of all resources of a kind, by number and language."""
        address = struct.unpack_from("<I", self._bytes, self._directories + 8 * RESOURCES)[0]
        base, below, found = self._offset(address), 0x7FFFFFFF, {}
        for number, kind_offset in self._entries(base, 0):
            if number != kind:
                continue
            for name, name_offset in self._entries(base, kind_offset & below):
                for language, leaf in self._entries(base, name_offset & below):
                    place, size = struct.unpack_from("<II", self._bytes, base + leaf)
                    start = self._offset(place)
                    found[name, language] = self._bytes[start:start + size]
        return found

    def only(self, kind):
        (content,) = self.resources(kind).values()
        return content

    def icon_sizes(self, number):
        """The sides of the pictures that an icon has, in pixels."""
        groups = {name: content for (name, _), content in self.resources(RT_GROUP_ICON).items()}
        count = struct.unpack_from("<H", groups[number], 4)[0]
        return [groups[number][6 + 14 * i] or 256 for i in range(count)]

    def version(self):
        """The four numbers of the file's version, and the texts by name."""
        content = self.only(RT_VERSION)
        high, low = struct.unpack_from("<II", content, content.index(b"\xbd\x04\xef\xfe") + 8)
        numbers = (high >> 16, high & 0xFFFF, low >> 16, low & 0xFFFF)
        return numbers, dict(_texts(content, 0, len(content)))


def _aligned(offset):
    return (offset + 3) // 4 * 4


def _texts(content, start, end):
    """The texts in the blocks of version data between two offsets."""
    while start + 6 <= end:
        length, value_length, is_text = struct.unpack_from("<3H", content, start)
        if length == 0:
            return
        key_end = start + 6
        while content[key_end:key_end + 2] != b"\0\0":
            key_end += 2
        key = content[start + 6:key_end].decode("utf-16-le")
        value = _aligned(key_end + 2)
        value_end = value + value_length * (2 if is_text else 1)
        if is_text and value_length:
            yield key, content[value:value_end].decode("utf-16-le").rstrip("\0")
        else:
            yield from _texts(content, _aligned(value_end), start + length)
        start = _aligned(start + length)
