"""A conversation with an instrument that writes down what it is sent, and what is left of it when it is over."""

import re
import socket
import threading

from case import WindowCase

NO_ERROR = '0,"No error"'


class Listener:
    """An instrument that writes down what it is sent; queries are answered with 0."""

    def __init__(self, answer=lambda line: NO_ERROR):
        self.lines = []
        self.answer = answer
        self.server = socket.create_server(("127.0.0.1", 0))
        self.name = f"TCPIP::127.0.0.1::{self.server.getsockname()[1]}::SOCKET"
        threading.Thread(target=self.serve, daemon=True).start()

    def serve(self):
        while True:
            try:
                connection, _ = self.server.accept()
            except OSError:
                return
            with connection, connection.makefile("rw", newline="\n", encoding="latin-1") as stream:
                for line in stream:
                    self.lines.append(line)
                    answer = self.answer(line.strip()) if "?" in line else None
                    if answer is not None:
                        stream.write(answer + "\n")
                        stream.flush()


class ConversationCase(WindowCase):
    def type(self, portico, text):
        portico.type(text)
        portico.wait(lambda: portico.commands.endswith(text), f"{text!r} to be typed")

    def expect(self, portico, commands):
        portico.wait(lambda: portico.commands == commands, f"{commands!r} in the command window")

    def offered(self, portico):
        shown = [node for node in portico.main.descendants() if node.name == "Completions" and node.showing]
        return [item.name for item in shown[0].children() if item.role == "list item"] if shown else []

    def wait_for_list(self, portico):
        return portico.wait(lambda: self.offered(portico), "the list")

    def wait_until_closed(self, portico):
        portico.wait(lambda: not self.offered(portico), "the list to close")

    def record(self, name, talk, instrument):
        """What goes over the wire while `talk` drives the window, and what then stands in history and log."""
        path = f"{self.desktop.home}/{name}.log"
        portico = self.connect(instrument.name)
        portico.choose("File", "New Log...")
        portico.choose_file("Open a log file", path)
        portico.wait(lambda: portico.main.name.startswith(path), "the log")
        portico.click(portico.find("txtFuture", "text"))
        talk(portico)
        self.expect(portico, "")
        history = portico.history
        portico.choose("File", "Exit")
        self.assertEqual(portico.wait_until_ended(), 0)
        with open(path, encoding="utf-8") as file:
            log = self.without_stamps(file.read())
        return {"wire": instrument.lines, "history": history.replace(instrument.name, "NAME"), "log": log.splitlines()}

    @staticmethod
    def without_stamps(log):
        return re.sub(r'(?i)(stamp=)"\d{4}-\d\d-\d\dT[^"]*"', r'\1"#"', log)

    def assert_same(self, one, other):
        for what in one:
            self.assertEqual(one[what], other[what], what)
