#!/usr/bin/python3
"""An anonymous FTP server on 127.0.0.1 for the transfer tests.

Usage: ftp_server.py ROOT. ROOT/down is readable and ROOT/up writable (anonymous). Listens on a
free port, prints it on one line of standard output, then serves until a signal ends it.
"""
import logging
import os
import sys
import warnings

from pyftpdlib.authorizers import DummyAuthorizer
from pyftpdlib.handlers import FTPHandler
from pyftpdlib.servers import FTPServer


def main():
    root = os.path.abspath(sys.argv[1])
    logging.basicConfig(level=logging.ERROR)
    # Anonymous write access is the point of the upload tree; no warning about it.
    warnings.simplefilter("ignore")
    authorizer = DummyAuthorizer()
    authorizer.add_anonymous(root, perm="elr")
    authorizer.override_perm("anonymous", os.path.join(root, "up"), perm="elradfmw",
                             recursive=True)
    handler = FTPHandler
    handler.authorizer = authorizer
    server = FTPServer(("127.0.0.1", 0), handler)
    print(server.address[1], flush=True)
    server.serve_forever()


if __name__ == "__main__":
    main()
