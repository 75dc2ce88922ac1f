#!/usr/bin/env python3
"""Writes a JSON file so that people can read it and compare it line by line: readable_json.py FILE. What fits on a line
stays on one."""
import json
import sys

WIDTH = 110


def readable(value, indent=0):
    flat = json.dumps(value, ensure_ascii=False)
    if len(flat) + indent <= WIDTH or not isinstance(value, (dict, list)) or not value:
        return flat
    inner = " " * (indent + 2)
    if isinstance(value, dict):
        parts = [f"{inner}{json.dumps(key, ensure_ascii=False)}: {readable(item, indent + 2)}"
                 for key, item in value.items()]
        opening, closing = "{", "}"
    else:
        parts = [inner + readable(item, indent + 2) for item in value]
        opening, closing = "[", "]"
    return f"{opening}\n" + ",\n".join(parts) + f"\n{' ' * indent}{closing}"


if __name__ == "__main__":
    with open(sys.argv[1], encoding="utf-8", errors="surrogatepass") as file:
        document = json.load(file)
    sys.stdout.reconfigure(encoding="utf-8", errors="surrogatepass")
    print(readable(document))
