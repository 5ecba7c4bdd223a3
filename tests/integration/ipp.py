"""Just enough of the Internet Printing Protocol to ask a server for its jobs."""

import collections
import http.client
import socket
import struct

Job = collections.namedtuple("Job", "name document_format")

_GET_JOBS = 0x000A
_OPERATION_GROUP, _JOB_GROUP, _END_OF_ATTRIBUTES = 0x01, 0x02, 0x03
_FIRST_VALUE_TAG = 0x10
_KEYWORD, _URI, _CHARSET, _LANGUAGE = 0x44, 0x45, 0x47, 0x48

_OPERATION = (
    (_CHARSET, b"attributes-charset", b"utf-8"),
    (_LANGUAGE, b"attributes-natural-language", b"en"),
    (_URI, b"printer-uri", b"ipp://localhost/"),
    (_KEYWORD, b"which-jobs", b"all"),
    (_KEYWORD, b"requested-attributes", b"job-id"),
    (_KEYWORD, b"", b"job-name"),
    # For this one CUPS reads the files of ended jobs; asked for names alone it has none for those.
    (_KEYWORD, b"", b"document-format"),
)


class _LocalConnection(http.client.HTTPConnection):
    """An HTTP connection to a socket in the file system."""

    def __init__(self, path):
        super().__init__("localhost")
        self._path = path

    def connect(self):
        self.sock = socket.socket(socket.AF_UNIX)
        self.sock.connect(self._path)


def jobs(path):
    """All jobs that the server at this socket knows, by number, whatever became of them.

    A job that is going with its queue may have lost its attributes.
    """
    request = struct.pack(">BBHI", 2, 0, _GET_JOBS, 1)
    request += bytes([_OPERATION_GROUP])
    for tag, name, value in _OPERATION:
        request += struct.pack(">BH", tag, len(name)) + name
        request += struct.pack(">H", len(value)) + value
    request += bytes([_END_OF_ATTRIBUTES])
    connection = _LocalConnection(path)
    try:
        connection.request("POST", "/", request, {"Content-Type": "application/ipp"})
        answer = connection.getresponse().read()
    finally:
        connection.close()
    status = struct.unpack_from(">H", answer, 2)[0]
    if status >= 0x100:
        raise RuntimeError(f"Get-Jobs gave status {status:#x}")
    found = [group for tag, group in _groups(answer) if tag == _JOB_GROUP]
    return {int.from_bytes(job[b"job-id"], "big"):
            Job(job.get(b"job-name", b"").decode(), job.get(b"document-format", b"").decode())
            for job in found}


def _groups(message):
    """Each group of attributes with its tag; an attribute is a tag, then name and value with lengths."""
    groups = []
    at = 8
    while message[at] != _END_OF_ATTRIBUTES:
        tag = message[at]
        at += 1
        if tag < _FIRST_VALUE_TAG:
            groups.append((tag, {}))
            continue
        parts = []
        for _ in range(2):
            (length,) = struct.unpack_from(">H", message, at)
            parts.append(message[at + 2:at + 2 + length])
            at += 2 + length
        groups[-1][1][parts[0]] = parts[1]
    return groups
