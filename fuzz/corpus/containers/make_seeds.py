#!/usr/bin/env python3
"""Writes the seed container files of fuzz_container_file into this folder.

The fuzz target cuts its input at form feeds (0x0C) into Containers/0.con, 1.con, ...; a seed with a
form feed is therefore a set of container files (used here for nesting).
"""
import os

HERE = os.path.dirname(os.path.abspath(__file__))


def lines(*ls):
    return "".join(l + "\r\n" for l in ls).encode("cp1252")


def body(name="Container", back=" 2688768 ", fore=" 16777215 ", icon="", copy="", refresh="False",
         note_on="0", note=("",), folded="0", flipped="0", shrink="0", x=" 600 ", y=" 200 ",
         w=" 3000 ", h=" 3000 "):
    return ["[Name]", name, "[Backcolor]", back, "[Forecolor]", fore, "[Icon]", icon, "[CopyPath]", copy,
            "[RefreshOnExpand]", refresh, "[NOTE ON]", note_on, "[START Note]", *note, "[END Note]",
            "[Folded]", folded, "[Flipped]", flipped, "[Shrink]", shrink, "[X]", x, "[Y]", y, "[W]", w,
            "[H]", h]


def plain(parent="-1", **kw):
    return ["[1.05]", "[Container]", parent, *body(**kw)]


PICTURE = ["[Picture]", "[Locked]", "0", "[PicX]", " 300 ", "[PicY]", " 500 ", "[PicW]", " 900 ",
           "[PicH]", " 700 ", "[PicPath]", "/data/photo.png", "TEMP", "TEMP", "TEMP", "TEMP"]


def link(x, y, label, kind, path, param="", group="", exclusive=""):
    return ["[Link]", "[Size]", " 10 ", "[LinkX]", x, "[LinkY]", y, "[LinkLabel]", label, "[LinkType]", kind,
            "[LinkPath]", path, "[LinkParam]", param, "[Color]", "-1", "[Bold]", "0", "[Confirm]", "0",
            "[Command]", " 0 ", "[Icon]", "", "[GROUP]", group, "[EXCLUSIVE]", exclusive]


SEEDS = {
    "plain.con": lines(*plain()),
    "note.con": lines(*plain(name="Note", note_on="1", note=("first line", "second line", "third"))),
    "folded.con": lines(*plain(folded="1", w=" 3502 ", h=" 2750 ")),
    "flipped.con": lines(*plain(flipped="1", y=" 4000 ")),
    "shrunk.con": lines(*plain(shrink="1", icon="/data/emptyicon.ico", x=" 1500 ", y=" 900 ", w=" 4000 ")),
    "copy-path.con": lines(*plain(copy="/tmp", refresh="True")),
    "contents.con": lines(*plain(name="Projects", back=" 1193046 ", fore=" 65280 "), *PICTURE,
                          *link(" 600 ", " 1500 ", "report.txt", " 2 ", "/data/report.txt", "-v", "work,home", "0"),
                          *link(" 600 ", " 1800 ", "Example", " 1 ", "https://example.org/")),
    "feed.con": lines("[1.05]", "[RSS]", "http://127.0.0.1:8080/feed.xml", "News", "-1",
                      *body(name="News", icon="favicon.ico")),
    "feed-shrunk.con": lines("[1.05]", "[RSS]", "http://127.0.0.1/feed.xml", "News", "-1",
                             *body(name="News", shrink="1")),
    # Two files: the second sits in the first; three files: a loop that the nesting pass must break.
    "nested.con": lines(*plain(name="Outer", w=" 6000 ", h=" 6000 ")) + b"\f" +
                  lines(*plain(parent=" 0 ", name="Inner", x=" 300 ", y=" 400 ")),
    "loop.con": lines(*plain(parent=" 2 ", name="A")) + b"\f" + lines(*plain(parent=" 0 ", name="B")) + b"\f" +
                lines(*plain(parent=" 1 ", name="C")) + b"\f" + lines(*plain(parent=" 3 ", name="Self")),
    # Old files: an older version line, keys in another order, a key before its container.
    "old-1.01.con": lines("[1.01]", "[Name]", "Early", "[Container]", "-1", "[X]", "-50", "[Y]", "10",
                          *link("100", "100", "App", "0", "C:\\Program Files\\App\\app.exe")),
}

for name, data in SEEDS.items():
    with open(os.path.join(HERE, name), "wb") as f:
        f.write(data)
