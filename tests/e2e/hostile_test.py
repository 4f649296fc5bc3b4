"""Hostile servers and unwritable targets: one message, no file left behind, the list unchanged."""
import gzip
import os
import pathlib
import re
import socket
import struct
import threading
import time
import unittest

from case import ProgramCase
from listfiles import DRM_CELLS, SAMPLE_LIST, SAMPLE_USER
from program import BINARY

FAILED = "Download failed,Please check the network"
ILLEGAL = "Illegal file,sync failed"
HEAD = b"HTTP/1.1 200 OK\r\n"
MOST_MEMORY = int(os.environ.get("HALCYON_MOST_MEMORY", "65536"))  # kB at any time beyond the idle program
CHUNKED = b"Transfer-Encoding: chunked\r\n\r\n"
RECORD = b"StartStopTimeUTC=0600-0700\nx\nFrequency=6000\nTarget=T\nx\nProgramme=P\nx\nx\nx\n"


class RawServer:
    """Answers every request with what `answer` sends over the bare connection."""

    def __init__(self, answer):
        self.answer = answer
        self.listener = socket.create_server(("127.0.0.1", 0))
        self.url = f"http://127.0.0.1:{self.listener.getsockname()[1]}/schedule"
        threading.Thread(target=self.run, daemon=True).start()

    def run(self):
        while True:
            try:
                connection, _ = self.listener.accept()
            except OSError:
                return
            threading.Thread(target=self.serve, args=(connection,), daemon=True).start()

    def serve(self, connection):
        with connection:
            try:
                request = b""
                while b"\r\n\r\n" not in request:
                    request += connection.recv(4096)
                self.answer(connection)
                connection.shutdown(socket.SHUT_WR)
                while connection.recv(4096):
                    pass
            except OSError:
                pass  # the program has disconnected

    def close(self):
        self.listener.close()


def chunk(content):
    return b"%x\r\n%s\r\n" % (len(content), content)


def body(content, *headers):
    length = b"Content-Length: %d\r\n" % len(content)
    return HEAD + length + b"".join(h + b"\r\n" for h in headers) + b"\r\n" + content


def memory(program, name):
    """kB; `name` is a line of the system's report on the process."""
    return int(re.search(name + r":\s+(\d+)", pathlib.Path(f"/proc/{program.process.pid}/status").read_text())[1])


def forever(start, part):
    """Sends `start`, then `part` again and again."""
    def answer(connection):
        connection.sendall(start)
        while True:
            connection.sendall(part)
    return answer


class Hostile(ProgramCase):
    def sync(self, answer, expected, program=None, seconds=60.0, after_address=b"", config_size=None):
        server = RawServer(answer)
        self.addCleanup(server.close)
        program = program or self.program(SAMPLE_LIST, SAMPLE_USER)
        with open(program.folder / "config.ini", "wb") as config:
            config.write(server.url.encode() + b"\n" + after_address)
            config.truncate(config_size)
        program.start()
        idle = memory(program, "VmRSS")
        program.keys("ctrl+i")
        self.assertEqual(program.wait(program.message_now, "the message", seconds), expected)
        program.answer("OK")
        beyond = memory(program, "VmHWM") - idle
        print(f"{beyond} kB beyond the idle program")
        self.assertLess(beyond, MOST_MEMORY)
        return program

    def refused(self, answer, expected=FAILED, **options):
        program = self.sync(answer, expected, **options)
        self.assert_cells(program, DRM_CELLS)
        self.assertFalse(os.path.lexists(program.folder / "DRMSchedule.ini"))
        self.assert_closes(program)
        self.assertEqual(program.read("List.ini"), SAMPLE_LIST)
        return program

    def test_an_endless_body(self):
        self.refused(forever(HEAD + CHUNKED, chunk(b"x" * 65536)))

    def test_an_endless_packed_body_of_nothing(self):
        empty = gzip.compress(b"") * 3000
        self.refused(forever(HEAD + b"Content-Encoding: gzip\r\n\r\n", empty))
        self.refused(forever(HEAD + CHUNKED[:-2] + b"Content-Encoding: gzip\r\n\r\n", chunk(empty)))
        stored = b"\0\0\0\xff\xff" * 10_000
        self.refused(forever(HEAD + b"Content-Encoding: deflate\r\n\r\n", stored))

    def test_the_extension_of_a_chunk_without_an_end(self):
        self.refused(forever(HEAD + CHUNKED + b"5;x=", b"x" * 65536))

    def test_interim_answers_without_an_end(self):
        self.refused(forever(b"", b"HTTP/1.1 100 Continue\r\n\r\n" * 1000))

    def test_a_status_line_without_an_end(self):
        self.refused(forever(b"HTTP/1.1 200 ", b"O" * 65536))

    def test_trailers_without_an_end(self):
        self.refused(forever(HEAD + CHUNKED + b"0\r\n", b"X-Trailer: " + b"x" * 1000 + b"\r\n"))

    def test_a_challenge_without_an_end_is_asked_once(self):
        for status, name in ((b"401 Unauthorized", b"WWW"), (b"407 Proxy Authentication Required", b"Proxy")):
            answers = []

            def challenge(connection):
                answers.append(connection)
                connection.sendall(b"HTTP/1.1 %s\r\nContent-Length: 0\r\n%s-Authenticate: Digest realm=\"r\", "
                                   b"nonce=\"%d\", stale=true\r\n\r\n" % (status, name, len(answers)))
            with self.subTest(status):
                self.refused(challenge)
                self.assertEqual(len(answers), 1)

    def test_a_connection_reset_in_a_body_without_a_length(self):
        def reset(connection):
            connection.sendall(HEAD + b"\r\n[DRMSchedule]\n" + RECORD)
            connection.setsockopt(socket.SOL_SOCKET, socket.SO_LINGER, struct.pack("ii", 1, 0))
            connection.close()
        self.refused(reset)

    def test_a_body_without_its_last_chunk(self):
        self.refused(lambda connection: connection.sendall(HEAD + CHUNKED + chunk(b"[DRMSchedule]\n" + RECORD)))

    def test_a_packed_body_that_is_cut_or_damaged(self):
        packed = gzip.compress(b"[DRMSchedule]\n" + RECORD)
        for damaged in (packed[:-8], packed[:-1], packed[:-8] + bytes(4) + packed[-4:]):
            with self.subTest(damaged[-8:]):
                self.refused(lambda connection, sent=damaged: connection.sendall(body(sent, b"Content-Encoding: gzip")))

    def test_a_part_or_nothing_instead_of_the_document(self):
        for status in (b"201 Created", b"203 Other", b"206 Partial Content", b"304 Not Modified"):
            with self.subTest(status):
                answer = body(b"[DRMSchedule]\n" + RECORD).replace(b"200 OK", status)
                self.refused(lambda connection, sent=answer: connection.sendall(sent))

    def test_a_body_that_unpacks_to_much_more(self):
        bomb = gzip.compress(b"[DRMSchedule]\n" + b"\0" * (512 << 20), 9)
        self.refused(lambda connection: connection.sendall(body(bomb, b"Content-Encoding: gzip")))

    def test_headers_without_an_end(self):
        def endless(connection):
            connection.sendall(HEAD)
            for number in range(1000):
                connection.sendall(b"X-%d: " % number + b"x" * 60000 + b"\r\n")
            connection.sendall(b"X-Long: ")
            while True:
                connection.sendall(b"x" * 65536)
        self.refused(endless)

    def test_no_http_at_all(self):
        self.refused(lambda connection: connection.sendall(b"\0\xff[DRMSchedule]\n" * 1000))

    def test_hanging_up_at_once(self):
        self.refused(lambda connection: None)

    def test_a_slow_drip_is_waited_for(self):
        content = b"[DRMSchedule]\n" + RECORD

        def drip(connection):
            connection.setsockopt(socket.IPPROTO_TCP, socket.TCP_NODELAY, 1)
            for byte in body(content):
                connection.sendall(bytes([byte]))
                time.sleep(0.005)  # the slowness of the server is what the case tests
        program = self.sync(drip, "The number of new station is: 1")
        self.assert_cells(program, [("P", "6000", "06:00-07:00", "T")])

    def test_redirects_in_a_circle_and_to_a_file(self):
        for target in (b"/schedule", b"file:///etc/passwd", b"ftp://127.0.0.1/x", b"//"):
            with self.subTest(target):
                self.refused(lambda connection, to=target: connection.sendall(
                    b"HTTP/1.1 302 Found\r\nContent-Length: 0\r\nLocation: " + to + b"\r\n\r\n"))

    def test_wrong_lengths(self):
        for length in (b"1000000", b"-5", b"99999999999999999999"):
            with self.subTest(length):
                self.refused(lambda connection, said=length: connection.sendall(
                    HEAD + b"Content-Length: " + said + b"\r\n\r\n[DRMSchedule]\n" + RECORD))

    def test_nuls(self):
        self.refused(lambda connection: connection.sendall(body(b"\0" * 5000)), ILLEGAL)

    def test_the_longest_schedule_and_one_more(self):
        start = b"[DRMSchedule]\n" + RECORD
        longest = start + b"\n" * (32_767 - len(start))
        self.sync(lambda connection: connection.sendall(body(longest)), "The number of new station is: 1")
        self.refused(lambda connection: connection.sendall(body(longest + b"\n")), "Overflow")

    def test_a_folder_in_the_place_of_the_download(self):
        program = self.program(SAMPLE_LIST, SAMPLE_USER)
        (program.folder / "DRMSchedule.ini").mkdir()
        program = self.sync(lambda connection: connection.sendall(body(b"[DRMSchedule]\n")), FAILED, program)
        self.assert_cells(program, DRM_CELLS)

    def test_a_link_in_the_place_of_the_download(self):
        program = self.program(SAMPLE_LIST, SAMPLE_USER)
        victim = program.folder / "victim"
        victim.write_text("precious")
        (program.folder / "DRMSchedule.ini").symlink_to(victim)
        self.refused(lambda connection: connection.sendall(body(b"[DRMSchedule]\n")), program=program)
        self.assertEqual(victim.read_text(), "precious")

    def test_a_config_of_a_gigabyte(self):
        program = self.program(SAMPLE_LIST, SAMPLE_USER)
        self.sync(lambda connection: connection.sendall(body(b"[DRMSchedule]\n" + RECORD)),
                  "The number of new station is: 1", program, after_address=b"x" * (1 << 20), config_size=1 << 30)
        self.assert_cells(program, [("P", "6000", "06:00-07:00", "T")])

    def test_a_disk_full_during_the_download(self):
        disk = self.receiver("full", blocks=BINARY.stat().st_size // 1024 + 2000)
        program = self.program(SAMPLE_LIST, SAMPLE_USER, disk.folder)
        large = b"[DRMSchedule]\n" + b"x" * (4 << 20)
        self.refused(lambda connection: connection.sendall(body(large)), program=program)


if __name__ == "__main__":
    unittest.main(verbosity=2)
