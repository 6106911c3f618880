#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The Ostrel developers
# SPDX-License-Identifier: BSD-3-Clause

"""The example of a sweep as an array of Slurm jobs, on a Slurm of this machine alone that is set up for the test.

test_slurm_array.py SWEEP PROGRAM JOURNALS

It takes root, and Debian's packages munge, slurmctld, slurmd and slurm-client.
"""

import contextlib
import importlib.util
import os
import pathlib
import shutil
import socket
import subprocess
import sys
import tempfile
import time

SWEEP, PROGRAM, JOURNALS = sys.argv[1:4]
PATIENCE = 300
START_PATIENCE = 60
TOOLS = ("munged", "slurmctld", "slurmd", "sbatch")
PATH = os.environ["PATH"] + ":/usr/sbin:/sbin"

SETTINGS = """\
ClusterName=test
SlurmctldHost={host}(127.0.0.1)
SlurmctldPort={ports[0]}
SlurmdPort={ports[1]}
AuthType=auth/munge
AuthInfo=socket={folder}/munge.socket
SlurmUser=root
StateSaveLocation={folder}/state
SlurmdSpoolDir={folder}/spool
SlurmctldPidFile={folder}/slurmctld.pid
SlurmdPidFile={folder}/slurmd.pid
ProctrackType=proctrack/linuxproc
TaskPlugin=task/none
MpiDefault=none
SelectType=select/cons_tres
SelectTypeParameters=CR_Core
NodeName={host} NodeAddr=127.0.0.1 CPUs={cores} State=UNKNOWN
PartitionName=test Nodes=ALL Default=YES State=UP
"""


def free_ports(count):
    with contextlib.ExitStack() as stack:
        sockets = [stack.enter_context(socket.socket()) for _ in range(count)]
        for one in sockets:
            one.bind(("127.0.0.1", 0))
        return [one.getsockname()[1] for one in sockets]


class NoDaemons(Exception):
    """The machine does not let Slurm's daemons run, as a container without their rights: nothing is learned of the example."""


class Slurm:
    """The daemons, which run until the end of the with statement."""

    def __init__(self, folder):
        self.folder = folder
        self.daemons = []
        self.environment = dict(os.environ, PATH=PATH, SLURM_CONF=f"{folder}/slurm.conf")

    def start(self, name, *arguments):
        log = open(self.folder / f"{name}.log", "wb")  # the daemon's from now on
        with log:
            self.daemons.append(subprocess.Popen([name, *arguments], env=self.environment, stdin=subprocess.DEVNULL,
                                                 stdout=log, stderr=log))

    def __enter__(self):
        try:
            self.bring_up()
        except BaseException:
            self.__exit__()
            raise
        return self

    def bring_up(self):
        folder = self.folder
        for name in ("state", "spool"):
            (folder / name).mkdir()
        key = folder / "munge.key"
        key.write_bytes(os.urandom(1024))
        key.chmod(0o600)
        host = socket.gethostname().partition(".")[0]
        (folder / "slurm.conf").write_text(
            SETTINGS.format(host=host, folder=folder, ports=free_ports(2), cores=os.cpu_count()))
        # It wants folders that nobody else may write to, which those for temporary files are not.
        self.start("munged", "--foreground", "--force", f"--key-file={key}", f"--socket={folder}/munge.socket",
                   f"--pid-file={folder}/munged.pid", f"--log-file={folder}/munged.own.log", f"--seed-file={folder}/munged.seed")
        self.wait_for("munge", "-n", "-S", f"{folder}/munge.socket")
        self.start("slurmctld", "-D")
        self.start("slurmd", "-D")
        self.wait_for("sinfo")

    def wait_for(self, *command):
        """Asks a daemon until it answers."""
        end = time.monotonic() + START_PATIENCE
        while (asked := self.run(*command)).returncode != 0:
            if time.monotonic() > end or any(daemon.poll() is not None for daemon in self.daemons):
                raise NoDaemons(f"{command[0]}: {asked.stdout}{asked.stderr}{self.logs()}")

    def __exit__(self, *_):
        for daemon in reversed(self.daemons):
            daemon.terminate()
        for daemon in self.daemons:
            try:
                daemon.wait(30)
            except subprocess.TimeoutExpired:
                daemon.kill()
                daemon.wait()

    def run(self, *command, **options):
        return subprocess.run(command, env=self.environment, timeout=PATIENCE, capture_output=True, text=True, check=False,
                              **options)

    def logs(self):
        return "\n".join(f"== {path.name}\n{path.read_text(errors='replace')[-2000:]}" for path in self.folder.glob("*.log"))


def load_sweep():
    spec = importlib.util.spec_from_file_location("sweep", SWEEP)
    module = sys.modules["sweep"] = importlib.util.module_from_spec(spec)
    spec.loader.exec_module(module)
    return module


def main():
    missing = [name for name in TOOLS if not shutil.which(name, path=PATH)]
    if os.getuid() != 0:
        missing.append("root")
    if missing:
        # Only a developer's machine may lack it.
        print(f"{'failed' if os.environ.get('CI') else 'skipped'}: there is no {', no '.join(missing)}")
        return 1 if os.environ.get("CI") else 0
    # The name of a socket must be short, so not in the folder of the test.
    with tempfile.TemporaryDirectory(prefix="fennar-slurm-", dir="/tmp") as name, Slurm(pathlib.Path(name)) as slurm:
        work = slurm.folder / "work"
        work.mkdir()
        (work / "bin").mkdir()
        (work / "bin" / "fennar").symlink_to(PROGRAM)
        slurm.environment["PATH"] = f"{work}/bin:{PATH}"
        slurm.environment.pop("FENNAR_COMPONENT_PATH", None)
        for file in ("flange.jou", "flange_sweep.sh"):
            shutil.copy(pathlib.Path(JOURNALS) / file, work)
        done = slurm.run("sbatch", "--wait", "flange_sweep.sh", cwd=work)
        logs = "\n".join(path.read_text() for path in sorted(work.glob("*.log")))
        if done.returncode != 0:
            sys.exit(f"sbatch: {done.returncode}\n{done.stdout}{done.stderr}{logs}{slurm.logs()}")
        table = load_sweep().read_records(work / f"flange_{task}.json" for task in range(6))
    wanted = [{"radius": radius, "size": size} for radius in (6, 9) for size in (4, 6, 8)]
    found = [row.parameters for row in table]
    if found != wanted or any(row.status != "done" or row.results["mesh"]["node_count"] < 100 for row in table):
        sys.exit(f"expected {wanted}, found {found}\n{table}")
    print(done.stdout, table)
    return 0


if __name__ == "__main__":
    try:
        sys.exit(main())
    except NoDaemons as reason:
        print(f"skipped: Slurm does not run here\n{reason}")
