"""scripts/test-sqlserver drops its scratch database when a signal ends it, even if a second signal arrives during the drop.

Started by with_postgres. Its server replaces the SQL Server: databases can be created and dropped there, and the run is
interrupted before the differences matter. The arguments are the script, the folder with the programs and server_plays.
"""
import os
import signal
import subprocess
import sys

SCRIPT, BIN, PLAYS = sys.argv[1:4]
SERVER = os.environ["ININ_ODBC_POSTGRES"]


def run_with(signals):
    """Runs the script, sends a signal to its process group at each given line, and returns exit code and output."""
    with subprocess.Popen([SCRIPT, SERVER], env={**os.environ, "ININ_BIN": BIN}, stdout=subprocess.PIPE,
                          stderr=subprocess.STDOUT, text=True, start_new_session=True) as run:
        output = []
        for line in run.stdout:
            output.append(line)
            for line_start, number in signals.items():
                if line.startswith(line_start):
                    os.killpg(run.pid, number)
        return run.wait(), "".join(output)


def is_there(name):
    """Tests whether a database exists: an existing one cannot be created again."""
    environment = {**os.environ, "ININ_SERVER": SERVER}
    made = subprocess.run([PLAYS, "create", name], env=environment, capture_output=True, check=False)
    if made.returncode == 0:
        subprocess.run([PLAYS, "drop", name], env=environment, capture_output=True, check=True)
    return made.returncode != 0


def check(signals):
    code, output = run_with(signals)
    name = output.split("== scratch database ")[1].split()[0]
    good = code == 130 and f"scratch database {name} dropped" in output and not is_there(name)
    print("ok     " if good else "FAILED ", signals)
    if not good:
        print(f"exit code {code}\n{output}")
    return good


RESULTS = [check({"== scratch database": signal.SIGINT, "== demo data": signal.SIGHUP}),
           check({"== demo data": signal.SIGTERM}), check({"== tests/scenarios": signal.SIGINT}),
           check({"== demo data": signal.SIGINT, "== dropping": signal.SIGINT})]
sys.exit(0 if all(RESULTS) else 1)
