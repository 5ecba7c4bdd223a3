"""What the tests through the host's real spooler share: library, spooler, print server, network printer.

Under Wine the spooler is Wine's winspool, which hands jobs to CUPS; natively the library does so itself.
The print server and the printer live as long as the test's program.
"""

import job_case
from listener import Listener
from not_run import not_run
from print_server import PrintServer, find_program

ARRIVAL_SECONDS = 30
QUEUE = "zeapi_raw"

_server = None
_printer = None


class SpoolerCase(job_case.JobCase):
    def setUp(self):
        super().setUp()
        self.server, self.printer = _server, _printer
        self.server.add_queue(QUEUE, self.printer.port)
        self.addCleanup(self.server.remove_queue, QUEUE)

    def call(self, *arguments, **environment):
        return super().call(*arguments, **{"CUPS_SERVER": self.server.address, **environment})

    def arrived(self, number):
        """The bytes of the printer's job of that number, counted from 0."""
        return self.printer.wait_for_job(number, ARRIVAL_SECONDS)


def main():
    global _server, _printer
    if find_program("cupsd") is None or find_program("lpadmin") is None:
        not_run("there is no print server here (packages cups and cups-client)")
    with job_case.session() as folder, Listener(folder) as _printer, PrintServer() as _server:
        job_case.run_tests()
