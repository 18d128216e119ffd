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

write("config",
      server=b"# Zentrel\ndata = /var/lib/zentrel\n\n[listen tcp]\naddress=0.0.0.0:5280\r\nca =\n",
      servers=b"\xef\xbb\xbf[defaults]\nca = ca.pem\n[ server\tweb01 ]\n host = 10.0.0.5 # no comment\n",
      empty=b"", no_equals=b"a = 1\nb\n", no_key=b"= 1", open_heading=b"[server web01\n",
      two_names=b"[server web 01]", not_utf8=b"# \xff\n", control=b"a = \x1b[2J")


def der(tag, *parts):
    body = b"".join(parts)
    size = bytes([len(body)]) if len(body) < 128 else b"\x82" + struct.pack(">H", len(body))
    return bytes([tag]) + size + body


def sequence(*parts):
    return der(0x30, *parts)


def extension(oid, value):
    return sequence(der(6, oid), der(4, value))


def common_name(text, tag=0x0C):
    return der(0x31, sequence(der(6, b"\x55\4\3"), der(tag, text)))


def certificate(*names, uris=(), use=b"\2", extensions=()):
    """A certificate for clients; use=b"\\1": for servers. Nobody has signed it."""
    point = bytes.fromhex("046b17d1f2e12c4247f8bce6e563a440f277037d812deb33a0f4a13945d898c296"
                          "4fe342e2fe1a7f9b8ee7eb4a7c0f9e162bce33576b315ececbb6406837bf51f5")
    ecdsa = sequence(der(6, bytes.fromhex("2a8648ce3d040302")))
    key = sequence(sequence(der(6, bytes.fromhex("2a8648ce3d0201")),
                            der(6, bytes.fromhex("2a8648ce3d030107"))),
                   der(3, b"\0", point))
    fields = [extension(b"\x55\x1d\x25", sequence(der(6, bytes.fromhex("2b0601050507 03") + use)))]
    if uris:
        fields.append(extension(b"\x55\x1d\x11", sequence(*(der(0x86, uri) for uri in uris))))
    times = sequence(der(0x17, b"200101000000Z"), der(0x18, b"21200101000000Z"))
    body = sequence(der(0xA0, der(2, b"\2")), der(2, b"\5"), ecdsa, sequence(common_name(b"CA")), times,
                    sequence(*names), key, der(0xA3, sequence(*fields, *extensions)))
    return sequence(body, ecdsa, der(3, b"\0", sequence(der(2, b"\1"), der(2, b"\1"))))


ANNA = common_name(b"Anna")
write("client_certificate",
      bare=certificate(ANNA), admin=certificate(ANNA, uris=[b"https://a/", b"zentrel:role:admin"]),
      wide=certificate(common_name("\u00c4nne".encode("utf-16-be"), 0x1E), uris=[b"zentrel:role:operator"]),
      two_roles=certificate(ANNA, uris=[b"zentrel:role:viewer", b"zentrel:role:admin"]),
      no_such_role=certificate(ANNA, uris=[b"zentrel:role:admin\0"]),
      no_name=certificate(), two_names=certificate(ANNA, common_name(b"Bert")),
      zero_in_name=certificate(common_name(b"Anna\0x")), forged_line=certificate(common_name(b"Anna\nBert")),
      not_utf8=certificate(common_name(b"Ann\xff")), long_name=certificate(common_name(b"x" * 200)),
      server=certificate(ANNA, use=b"\1"),
      broken_names=certificate(ANNA, extensions=[extension(b"\x55\x1d\x11", b"\x30\x05\x86")]),
      cut=certificate(ANNA)[:-20], no_certificate=b"-----BEGIN CERTIFICATE-----\n")
write("registry_bytes",  # the type, then the value
      text=b"\1text\0", text_cut=b"\1te\0xt", empty_text=b"\1", expandable=b"\2<%HOME%|%NONE%>%\0more\0",
      binary=b"\3\x0a\xff", number=b"\4\1\2\3\x80", short_number=b"\4\1\2", list=b"\7a\0b\0\0",
      list_with_gap=b"\7a\0\0b\0\0", list_unfinished=b"\7a\0bc", empty_list=b"\7\0", unknown=b"\x0bany")

write("metrics_request",
      get=b"GET /metrics HTTP/1.1\r\nHost: localhost:9280\r\nAccept: */*\r\n\r\n",
      absolute=b"GET http://localhost/metrics?x=1 HTTP/1.0\r\n\r\nmore", post=b"POST /metrics HTTP/1.0\r\n\r\nabc",
      elsewhere=b"GET /favicon.ico HTTP/1.1\r\nhost: x\r\n\r\n", unfinished=b"GET /metrics HTTP/1.1\r\nHo",
      folded=b"GET /metrics HTTP/1.0\r\nA: b\r\n c\r\n\r\n", bare_lines=b"GET /metrics HTTP/1.0\n\n",
      two_hosts=b"GET /metrics HTTP/1.1\r\nHost: a\r\nHost: b\r\n\r\n", zeros=b"GET /metrics\0 HTTP/1.1\r\n\r\n")

write("toolbar_bytes",
      standard=b"toolbar 1\nbutton Connect\nbutton Stop\nbutton Refresh\nseparator\nbutton Remove\n"
               b"separator\nbutton Panels\nbutton Help\nend\n",
      rearranged=b"toolbar 1\nseparator\nbutton Help\nbutton Stop\nspare Connect\nspare Refresh\nend\n",
      empty_bar=b"toolbar 1\n" + b"".join(b"spare %s\n" % key for key in
                                          (b"Connect", b"Stop", b"Refresh", b"Remove", b"Panels", b"Help"))
                + b"end\n",
      newer=b"toolbar 1\nsize 32\nbutton Sites\nbutton Help\nend\nmore\n", later_format=b"toolbar 2\nend\n",
      twice=b"toolbar 1\nbutton Stop\nbutton Stop\nend\n", cut=b"toolbar 1\nbutton Stop\nbutton He",
      separators=b"toolbar 1\n" + b"separator\n" * 33 + b"end\n", no_key=b"toolbar 1\nbutton \nend\n",
      zeros=b"toolbar 1\nbutton Stop\0\nend\n\0", no_lines=b"\0\xff")

# What a server sends: how it is read, a detail (size of the batches, status code), then the bytes.
def row(depth, children, name, properties=b""):
    return struct.pack("<4I", depth, children, len(properties), len(name)) + name + properties


def field(number, value):
    if isinstance(value, int):
        return bytes([number << 3, value])
    return bytes([number << 3 | 2, len(value)]) + value


ROWS = (row(0, 2, b"1") + row(1, 1, b"Root", packed((1002, 2, b"IIsWebVirtualDir")))
        + row(2, 0, b"a.gif", packed((528403, 1, b"\1\0\0\0"))) + row(1, 0, b"\xff\x1b[2J"))
SERVICE = field(1, b"RemoteRegistry") + field(2, 4) + field(3, 3)
write("server_reply",
      raw=b"\0\xff" + ROWS,
      cut=b"\0\1" + ROWS,
      checked=b"\1\xff" + ROWS,
      too_deep=b"\1\xff" + row(0, 1, b"1") + row(2, 0, b"a"),
      failure=b"\2\6" + field(1, 5) + field(2, b"Metabase") + field(3, b"no <b>\n\xff"),
      no_code=b"\2\x0d" + field(3, b"x"),
      record=b"\3\0" + field(1, 1) + field(2, 2) + field(3, b"text"),
      services=b"\3\0" + field(1, SERVICE) + field(1, SERVICE))
