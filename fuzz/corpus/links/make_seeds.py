#!/usr/bin/env python3
# Writes the seeds of the link file targets (fuzz_lnk_file, fuzz_url_file, fuzz_desktop_file) into
# this folder: shell links built here field by field (local, Unicode, network, mapped drive, ID list,
# relative path, environment block, 8-bit strings), Internet shortcuts and desktop entries. Run it from
# anywhere: python3 fuzz/corpus/links/make_seeds.py
import os
import struct

HERE = os.path.dirname(os.path.abspath(__file__))
CLSID = bytes.fromhex("0114020000000000c000000000000046")
MY_COMPUTER = bytes.fromhex("e04fd020ea3a6910a2d808002b30309d")


def z(b): return b + b"\0"
def uz(s): return s.encode("utf-16-le") + b"\0\0"


def link_info(base=b"", suffix=b"", ubase=None, usuffix=None, net=b"", device=b""):
    unicode = ubase is not None or usuffix is not None
    hsize = 0x24 if unicode else 0x1C
    body = bytearray(hsize)
    off = {}
    if base:
        off["vol"] = len(body)
        vol = struct.pack("<IIII", 0, 3, 0x1234ABCD, 0x10) + z(b"DATA")
        body += struct.pack("<I", len(vol)) + vol[4:]
        off["base"] = len(body)
        body += z(base)
    if net:
        off["net"] = len(body)
        flags = (1 if device else 0) | 2
        n = bytearray(struct.pack("<IIIII", 0, flags, 0x14, 0x14 + len(net) + 1, 0x20000))
        n += z(net) + z(device)
        n[0:4] = struct.pack("<I", len(n))
        body += n
    off["suffix"] = len(body)
    body += z(suffix)
    if unicode:
        if base:
            off["ubase"] = len(body)
            body += uz(ubase or "")
        off["usuffix"] = len(body)
        body += uz(usuffix or "")
    flags = (1 if base else 0) | (2 if net else 0)
    struct.pack_into("<IIIIIII", body, 0, len(body), hsize, flags, off.get("vol", 0), off.get("base", 0),
                     off.get("net", 0), off["suffix"])
    if unicode:
        struct.pack_into("<II", body, 28, off.get("ubase", 0), off["usuffix"])
    return bytes(body)


def item(data): return struct.pack("<H", len(data) + 2) + data


def file_item(short, long_name, version, folder):
    d = bytearray([0x31 if folder else 0x32, 0]) + struct.pack("<IIH", 1, 0x5A215A21, 0x10 if folder else 0x20)
    d += z(short)
    if len(d) % 2:
        d += b"\0"
    if long_name:
        start = len(d)
        name_at = {3: 20, 7: 38, 8: 42, 9: 46}[version]
        e = bytearray(struct.pack("<HHI", 0, version, 0xBEEF0004)) + bytes(name_at - 8)
        e += uz(long_name) + struct.pack("<H", start + 2)
        e[0:2] = struct.pack("<H", len(e))
        d += e
    return item(bytes(d))


def env_block(ansi, uni, sig=0xA0000001):
    return struct.pack("<II", 0x314, sig) + ansi.ljust(260, b"\0") + uz(uni).ljust(520, b"\0")


def shell_link(items=(), info=b"", strings=(), extra=b"", unicode=True, flags=0):
    names = ["name", "relative", "workdir", "args", "icon"]
    given = dict(strings)
    flags |= (0x1 if items else 0) | (0x2 if info else 0) | (0x80 if unicode else 0)
    for i, n in enumerate(names):
        if n in given:
            flags |= 0x4 << i
    out = struct.pack("<I", 0x4C) + CLSID + struct.pack("<II", flags, 0x20) + bytes(24)
    out += struct.pack("<IiIH", 100, 0, 1, 0) + bytes(10)
    if items:
        lst = b"".join(items) + b"\0\0"
        out += struct.pack("<H", len(lst)) + lst
    out += info
    for n in names:
        if n in given:
            s = given[n]
            out += struct.pack("<H", len(s)) + (s.encode("utf-16-le") if unicode else s.encode("cp1252"))
    return out + extra + b"\0\0\0\0"


PC = item(b"\x1f\x50" + MY_COMPUTER)
DRIVE_C = item(z(b"\x2fC:\\").ljust(0x17, b"\0"))

seeds = {
    "local.lnk": shell_link([PC, DRIVE_C, file_item(b"test", "test", 7, True), file_item(b"a.txt", "a.txt", 7, False)],
                            link_info(base=b"C:\\test\\a.txt"), {"relative": ".\\a.txt", "workdir": "C:\\test"}.items()),
    "unicode.lnk": shell_link((), link_info(base=b"C:\\Users\\", suffix=b"?.txt", ubase="C:\\Users\\",
                                            usuffix="\u0444\u0430\u0439\u043b \U0001F370.txt"),
                              {"workdir": "C:\\Users"}.items()),
    "network.lnk": shell_link((), link_info(net=b"\\\\server\\share", suffix=b"dir\\f.pdf"),
                              {"workdir": "\\\\server\\share\\dir"}.items(),
                              env_block(b"\\\\server\\share\\dir\\f.pdf", "\\\\server\\share\\dir\\f.pdf")),
    "mapped.lnk": shell_link((), link_info(net=b"\\\\server\\share", device=b"Z:", suffix=b"dir\\f.pdf")),
    "split-cp1251.lnk": shell_link((), link_info(base=b"C:\\Users\\", suffix=b"\xc4\xe8\xec\xe0\\a.bat"),
                                   {"workdir": "C:\\Users\\\u0414\u0438\u043c\u0430"}.items()),
    "idlist.lnk": shell_link([PC, DRIVE_C, file_item(b"PROGRA~1", "Program Files", 9, True),
                              file_item(b"APP.EXE", "", 0, False), ], b"",
                             {"relative": "..\\Program Files\\APP.EXE"}.items()),
    "idlist-v3.lnk": shell_link([PC, DRIVE_C, file_item(b"DOCUME~1", "Documents and Settings", 3, True)]),
    "relative.lnk": shell_link((), b"", {"relative": "..\\docs\\a b.txt"}.items()),
    "environment.lnk": shell_link((), b"", {"name": "@%windir%\\x.dll,-1", "args": "/SendTo"}.items(),
                                  env_block(b"%windir%\\system32\\x.exe", "%windir%\\system32\\x.exe"), flags=0x200),
    "ansi-strings.lnk": shell_link((), link_info(base=b"E:\\Games\\caf\xe9.exe"),
                                   {"name": "d\xe9j\xe0", "relative": ".\\caf\xe9.exe", "workdir": "E:\\Games",
                                    "args": "-x", "icon": "E:\\Games\\caf\xe9.exe"}.items(), unicode=False),
    "darwin.lnk": shell_link([PC, DRIVE_C, file_item(b"ICON.ICO", "", 0, False)], b"", {"relative": ".\\ICON.ICO"}.items(),
                             env_block(b"[p]f>c", "[p]f>c", 0xA0000006), flags=0x1000),
    "header-only.lnk": shell_link(),
    "shortcut.url": b"[InternetShortcut]\r\nURL=https://example.org/page\r\nIconIndex=0\r\n",
    "bom.url": b"\xef\xbb\xbf[internetshortcut]\r\nurl = http://a/\r\n[Other]\r\nURL=http://b/\r\n",
    "utf16.url": b"\xff\xfe" + "[InternetShortcut]\r\nURL=http://c/\r\n".encode("utf-16-le"),
    "link.desktop": b"[Desktop Entry]\nType=Link\nName=Site\nURL=https://example.net/a\\sb\n",
    "app.desktop": b"# c\n[Desktop Entry]\nType=Application\nExec=\"/opt/My App/run\" --x=\"a\\\\b\" %U 100%%\n"
                   b"[Desktop Action new]\nExec=other\n",
    "path-app.desktop": b"[Desktop Entry]\nType=Application\nExec=%i firefox %u\n",
}

for name, data in seeds.items():
    with open(os.path.join(HERE, name), "wb") as f:
        f.write(data)
