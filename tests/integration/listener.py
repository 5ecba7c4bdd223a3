"""A network printer's ear: keeps what arrives on a loopback port, each connection in a file."""

import os
import socket
import threading


class Listener:
    def __init__(self, folder):
        self._folder = folder
        self._changed = threading.Condition()
        self._received = 0
        self._socket = socket.create_server(("127.0.0.1", 0))
        self._thread = threading.Thread(target=self._accept, daemon=True)

    def __enter__(self):
        self._thread.start()
        return self

    def __exit__(self, *_):
        # Wakes the thread, which a close alone does not.
        self._socket.shutdown(socket.SHUT_RDWR)
        self._thread.join()
        self._socket.close()

    @property
    def port(self):
        return self._socket.getsockname()[1]

    @property
    def received(self):
        """How many jobs have arrived."""
        with self._changed:
            return self._received

    def wait_for_job(self, number, seconds):
        """The bytes of the job of that number, counted from 0; None when it does not come in time."""
        with self._changed:
            if not self._changed.wait_for(lambda: self._received > number, seconds):
                return None
        with open(self._file_name(number), "rb") as file:
            return file.read()

    def _file_name(self, number):
        return os.path.join(self._folder, f"job{number}.prn")

    def _accept(self):
        while True:
            try:
                connection, _ = self._socket.accept()
            except OSError:
                return
            with connection, open(self._file_name(self._received), "wb") as file:
                while data := connection.recv(65536):
                    file.write(data)
            with self._changed:
                self._received += 1
                self._changed.notify_all()
