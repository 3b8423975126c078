#!/usr/bin/env python3
"""Reads the accessible tree of a running program over AT-SPI, as a screen reader does.

Usage: accessible_tree.py APP_NAME [--dump FILE] [--expect ROLE NAME [DESCRIPTION_PART]]... [--timeout S]

Finds the application named APP_NAME (case-insensitive) on the accessibility bus, walks its tree, and
checks that for each --expect an object of that role (AT-SPI role name, e.g. "link", "heading") and
that exact name exists, with DESCRIPTION_PART in its description when given. Walks again until all
are found or the time-out passes. Prints each found object and exits 0; prints what is missing and
exits 1. --dump writes every object as "role<TAB>name<TAB>description" lines.
"""
import argparse
import sys
import time
import warnings

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi  # noqa: E402

MAX_NODES = 20000


def find_app(name):
    desktop = Atspi.get_desktop(0)
    for i in range(desktop.get_child_count()):
        app = desktop.get_child_at_index(i)
        try:
            if app is not None and (app.get_name() or "").lower() == name.lower():
                return app
        except Exception:  # an application that went away meanwhile
            continue
    return None


def walk(root):
    """Every object under root with its role name, name and description (and a text value for texts)."""
    out = []
    stack = [root]
    while stack and len(out) < MAX_NODES:
        node = stack.pop()
        try:
            role = node.get_role_name()
            name = node.get_name() or ""
            desc = node.get_description() or ""
            count = node.get_child_count()
        except Exception:
            continue
        text = ""
        if role in ("text", "entry", "editable text", "paragraph"):
            try:
                with warnings.catch_warnings():
                    # The per-interface getters are deprecated in newer AT-SPI but are what 2.46 has.
                    warnings.simplefilter("ignore", DeprecationWarning)
                    iface = node.get_text_iface()
                if iface is not None:
                    text = Atspi.Text.get_text(iface, 0, Atspi.Text.get_character_count(iface))
            except Exception:
                pass
        out.append((role, name, desc, text))
        for i in range(count - 1, -1, -1):
            try:
                child = node.get_child_at_index(i)
            except Exception:
                continue
            if child is not None:
                stack.append(child)
    return out


def main():
    ap = argparse.ArgumentParser()
    ap.add_argument("app")
    ap.add_argument("--expect", nargs="+", action="append", default=[], metavar="ROLE NAME [DESC]")
    ap.add_argument("--dump")
    ap.add_argument("--timeout", type=float, default=20)
    args = ap.parse_args()
    for e in args.expect:
        if len(e) not in (2, 3):
            ap.error("--expect takes ROLE NAME [DESCRIPTION_PART]")

    end = time.monotonic() + args.timeout
    nodes, missing = [], list(args.expect)
    while True:
        app = find_app(args.app)
        if app is not None:
            nodes = walk(app)
            missing = []
            for e in args.expect:
                role, name = e[0], e[1]
                part = e[2] if len(e) == 3 else None
                hit = [n for n in nodes if n[0] == role and n[1] == name and (part is None or part in n[2])]
                if hit:
                    print(f"found {role} '{name}'" + (f" described '{hit[0][2]}'" if hit[0][2] else ""))
                else:
                    missing.append(e)
            if not missing:
                break
        if time.monotonic() >= end:
            break
        time.sleep(0.5)

    if args.dump:
        with open(args.dump, "w", encoding="utf-8") as f:
            for role, name, desc, text in nodes:
                f.write(f"{role}\t{name}\t{desc}\t{text!r}\n")
    if app is None:
        print(f"no application named {args.app} on the accessibility bus", file=sys.stderr)
        return 1
    print(f"{len(nodes)} accessible objects in {args.app}")
    for e in missing:
        print("missing: " + " ".join(repr(x) for x in e), file=sys.stderr)
    return 1 if missing else 0


if __name__ == "__main__":
    sys.exit(main())
