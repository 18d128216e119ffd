#!/usr/bin/env python3
"""Writes the hand-made seeds below corpus/: every layout in both byte orders, and some broken ones."""

import pathlib
import struct

CORPUS = pathlib.Path(__file__).parent / "corpus"
DATES = (0x01C6A1B2C3D4E5F6, 0x01C7B1A293847566, 0x01C5091827364554)
SIZES = (123456, 34567)


def write(target, **seeds):
    folder = CORPUS / target
    folder.mkdir(parents=True, exist_ok=True)
    for name, data in seeds.items():
        (folder / name).write_bytes(data)


def halves(date):
    return date & 0xFFFFFFFF, date >> 32


def cache(order, header, query=0):
    return header + struct.pack(order + "i6Q", 6, *DATES, *SIZES, query)


def old_cache(order, header):
    words = [word for date in DATES for word in halves(date)]
    return header + struct.pack(order + "6Ii3Q", *words, 9, *SIZES, 0xABCD)


def statistics(order, header, hits=1000):
    return header + struct.pack(order + "3i4Q", hits, 900, 3, 10**12, 10**7, 0, 0)


def packed(*properties):
    return b"".join(struct.pack("<IB3xI", *head, len(value)) + value for *head, value in properties)


write("cache_record",
      v3_little=cache("<", b"\1\0\3\0"), v3_big=cache(">", b"\0\3\0\1"),
      v3_query=cache("<", b"\1\0\3\0", 0xABCDEF0123456789),
      v2_little=old_cache("<", b"\1\0\2\0"), v2_big=old_cache(">", b"\0\2\0\1"),
      v1_little=old_cache("<", b"\0\0\1\0"), v1_big=old_cache(">", b"\0\1\0\0"),
      v0_little=old_cache("<", b"\1\7\0\0"), v0_big=old_cache(">", b"\0\0\7\1"),
      v4=cache("<", b"\1\0\4\0"), no_header=cache("<", b"\1\0\0\0"),
      short=cache("<", b"\1\0\3\0")[:37], header_only=b"\1\0\3\0", two_bytes=b"\0\1",
      largest=b"\1\0\3\0" + b"\xff" * 52)
write("statistics_record",
      v1_little=statistics("<", b"\1\0\1\0"), v1_big=statistics(">", b"\0\1\0\1"),
      bare_little=statistics("<", b"\0\0\1\0"), bare_big=statistics(">", b"\0\1\0\0"),
      v0_little=statistics("<", b"\1\7\0\0", -1), v0_big=statistics(">", b"\0\0\7\1", -1),
      v2=statistics("<", b"\1\0\2\0"), short=statistics("<", b"\1\0\1\0")[:21],
      largest=b"\1\0\1\0" + b"\xff" * 44)
write("meta_path",
      site_root=b"\3\x34\x12\0\0LM/W3SVC/1/Root/img/Logo.GIF\0D:\\web",
      own_root=b"\4\0\xff\xff\xff/LM/W3SVC/1/Root/img\0/srv/pics/",
      site=b"\2\0\0\0\x80LM/W3SVC/1/Root/Docs/Read.Me/file\0E:\\",
      tree_key=b"\xff\0\0\0\0" + b"1/Root/dir/sub\0",
      slashes=b"\5\xff\0\0\0//LM//W3SVC/1///x.\xc3\x84\xff/\0//")
write("property",
      entry=packed((528403, 1, b"\x34\x12\0\0"), (528404, 3, cache("<", b"\1\0\3\0")),
                   (528410, 3, statistics("<", b"\1\0\1\0"))),
      site=packed((1002, 2, b"IIsWebServer"), (1015, 2, b"Default"), (1016, 1, b"\2\0\0\0"),
                  (1023, 5, b"*:80:\0*:443:host\0")),
      disorder=packed((3001, 2, b"/srv/www"), (1002, 2, b""), (3001, 2, b"/other")),
      wrong_types=packed((528403, 2, b"x"), (1015, 77, b"\0" * 65), (1023, 5, b"\0\0a")),
      cut=packed((1015, 2, b"a site's comment"))[:-3],
      oversized=struct.pack("<IB3xI", 1015, 2, 0xFFFFFFFF) + b"x")


def logged(request, client=b"h - -", tail=b" 200 1"):
    return client + b' [10/Oct/2000:13:55:36 -0700] "' + request + b'"' + tail


write("access_log",
      common=logged(b"GET /a.gif HTTP/1.0", b"127.0.0.1 - frank", b" 200 2326"),
      combined=logged(b"HEAD /?q=%20 HTTP/1.1", b"::1 - -", b' 304 - "http://from/" "agent \\"x\\""'),
      virtual_host=logged(b"GET /v HTTP/2.0", b'site:80 h - J. "K" [x] Doe'),
      escapes=logged(b'GET /a\\"b\\\\c\\x41\\xc3\\xa4\\n HTTP/1.1'),
      absolute=logged(b"GET http://host:81/p?q HTTP/1.1"), other_method=logged(b"OPTIONS * HTTP/1.1"),
      no_request=logged(b"-", tail=b" 408 -"), handshake=logged(b"\\x16\\x03\\x01"),
      raw_bytes=logged(b"GET /\xff\x00\x1b[2J HTTP/1.1", tail=b" 200 1\r"), cut=logged(b"GET /a")[:-7])
