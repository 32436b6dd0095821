# -*- coding: utf-8 -*-
# The Ansible module "zunwiz": runs a ZunWiz wizard unattended on a host through
# zunwiz-run, and tells Ansible what the run changed (from its install record),
# whether it failed (from its exit status, with the script's own message) and what
# the wizard showed and asked (its trace).

from __future__ import absolute_import, division, print_function
__metaclass__ = type

DOCUMENTATION = r'''
---
module: zunwiz
short_description: Run a ZunWiz wizard unattended
description:
  - Runs the wizard of a ZunWiz option file on the host with C(zunwiz-run), answers
    in place of a person's clicks.
  - C(changed) comes from the run's install record (C(zunwiz-run --record)) - true
    when the wizard's script changed anything on the machine (a file or folder
    created, replaced, deleted or moved, a launcher written, a registry value or key
    set or deleted, a printer added, a program run), false when it did nothing.
  - C(failed) comes from the exit status; the message is the script's own verdict
    message when it gave one. Statuses 0 (the wizard ended normally) and 4 (it ended
    at once, past its last page) are success.
  - In check mode the wizard is not run; C(zunwiz-check) reads the file and the task
    fails when it finds errors.
version_added: "0.1"
options:
  wizard:
    description:
      - The option file (C(.par)) on the host. Made absolute; it may hold no blanks,
        since the wizard's command line is split at blanks.
    type: path
    required: true
  answers:
    description:
      - The answers, one a line (C(SEG), C(CAN), C(BOX 1), C(CHECK ckAceito 1)...).
      - A list is taken as the answer lines, and so is a text of several lines; a
        text of one line is the path of an answers file on the host.
      - Left out, the wizard gets no answers, as with C(/dev/null).
    type: raw
  env:
    description:
      - Environment variables for the run, added to the module's own.
    type: dict
    default: {}
  values:
    description:
      - Option values for the wizard, given as C(KEY=value) words on its command line.
        Neither key nor value may hold blanks.
    type: dict
    default: {}
  timeout:
    description:
      - The longest one script call may take, in seconds (C(zunwiz-run --timeout));
        C(0) is no limit. Left out, zunwiz-run's default (600).
    type: int
  record:
    description:
      - The install record (C(zunwiz-run --record)), for C(zunwiz-undo) to take the
        install back. The run is appended to it, as zunwiz-run does, so a record holds
        every run made with that path; C(changed) is read from this run's part. Left
        out, the record goes to a temporary file that is read and dropped.
    type: path
  keep_replaced:
    description:
      - A folder where a copy of each file that the run replaces or deletes is kept
        first, so that undo can put it back (C(zunwiz-run --keep-replaced)). Needs
        C(record).
    type: path
  shots:
    description:
      - A folder for a picture of the window at each page and box (C(zunwiz-run --shots)).
    type: path
  executable:
    description:
      - The program that runs the wizard, by name on the PATH or by path.
    type: str
    default: zunwiz-run
  checker:
    description:
      - The program that checks the file in check mode.
    type: str
    default: zunwiz-check
notes:
  - Supports check mode. The wizard runs as the task's user; become root for a wizard
    that installs for every user.
author:
  - ZunWiz developers
'''

EXAMPLES = r'''
- name: Install Contas with the wizard's answers file
  zunwiz:
    wizard: /srv/instaladores/contas/contas.par
    answers: /srv/instaladores/contas/contas.ans
    record: /var/lib/contas/install.jsonl
    timeout: 120

- name: Answers given in the task, an option value and the destination folder
  zunwiz:
    wizard: /srv/instaladores/notas/notas.par
    answers:
      - SEG
      - CHECK ckAceito 1
      - SEG
      - CAN
    values:
      Produto: Notas
    env:
      NOTAS_PARA: utilizador
  register: notas

- name: Show the pages the wizard went through
  debug:
    msg: "{{ notas.trace | select('match', '^page ') | list }}"
'''

RETURN = r'''
rc:
  description: The exit status of zunwiz-run.
  returned: when the wizard ran
  type: int
  sample: 0
status:
  description: What the exit status means.
  returned: when the wizard ran
  type: str
  sample: the wizard ended normally
verdict:
  description: The script's verdict word (CONCLUIDO, FALHOU, CANCELADO, RECUSADO), empty when it gave none.
  returned: when the wizard ran
  type: str
  sample: FALHOU
message:
  description: The script's verdict message, empty when it gave none.
  returned: when the wizard ran
  type: str
  sample: "A cópia falhou; a instalação foi desfeita."
trace:
  description: The trace of the run, one event a line (page, ctl, box, input, script, end, result...).
  returned: when the wizard ran
  type: list
  elements: str
  sample: ["page 1 INI", "end unload", "result CONCLUIDO \"Instalado.\""]
changes:
  description:
    - The record's change entries, in the order they were made, each as the record
      writes it (C(op), the path and what else the entry holds).
  returned: when the wizard ran
  type: list
  elements: dict
  sample: [{"op": "file-created", "path": "/opt/notas/notas", "size": 38, "mode": "0644",
            "sha256": "214b720d4c6753f46ca40f5e91aca73ed901b483fa1639d2000579380909da1f"}]
record:
  description: The install record's path, when the task named one.
  returned: when record is given
  type: str
stderr:
  description: What zunwiz-run wrote on standard error.
  returned: when the wizard ran
  type: str
check:
  description: In check mode, zunwiz-check's report, one finding a line.
  returned: in check mode
  type: list
  elements: str
'''

import json
import os
import re
import tempfile

from ansible.module_utils.basic import AnsibleModule

# What each exit status of zunwiz-run means (docs/zunwiz-run.md).
STATUS = {
    0: 'the wizard ended normally',
    1: 'the command line does not fit',
    2: 'the option file is missing or unreadable',
    3: 'the answers do not fit',
    4: 'the wizard ended at once',
    5: 'the wizard could not be built',
    6: 'a script call went past the time limit',
    7: 'the trace or a shot could not be written',
    8: 'the install failed',
    9: 'the install was cancelled',
    10: 'the licence was refused',
}
# Statuses of a run that ended as its wizard meant: unloaded, or past its last page.
STATUS_OK = (0, 4)
# Record entries that only mark the run's start and end.
REC_MARCAS = ('begin', 'end')


def rsp_prp(module, rsp, tmp):
    """The answers file to give zunwiz-run: the path given, or a file written in
    the module's temporary folder from the lines given."""
    if rsp is None:
        return os.devnull
    if isinstance(rsp, str) and '\n' not in rsp:
        cam = os.path.abspath(os.path.expanduser(rsp))
        if not os.path.isfile(cam):
            module.fail_json(msg='answers file not found: %s' % cam)
        return cam
    if isinstance(rsp, str):
        lins = rsp.splitlines()
    elif isinstance(rsp, list):
        lins = [str(x) for x in rsp]
    else:
        module.fail_json(msg='answers must be a file path or a list of lines')
    cam = os.path.join(tmp, 'answers')
    with open(cam, 'w', encoding='utf-8') as f:
        f.write(''.join(lin + '\n' for lin in lins))
    return cam


def pal_lin(module, wizard, values):
    """The wizard's own command-line words: -FP and the file, then KEY=value. The
    program joins them with blanks and splits them at blanks again, so a blank in
    any of them would cut it in two: such a word is refused here."""
    pal = ['-FP', wizard]
    for k, v in values.items():
        pal.append('%s=%s' % (k, '' if v is None else v))
    for p in pal:
        if re.search(r'\s', p):
            module.fail_json(msg='a blank in the wizard\'s command line would split it: %r' % p)
    return pal


def trc_ler(cam):
    """The trace's lines; none when it was not written."""
    try:
        with open(cam, encoding='utf-8', errors='replace') as f:
            return f.read().splitlines()
    except OSError:
        return []


def res_trc(trc):
    """The script's verdict from the trace's `result WORD "MESSAGE"` line: the word
    and the message, with the trace's doubled quotes made single."""
    for lin in reversed(trc):
        m = re.match(r'^result (\S+) "(.*)"$', lin)
        if m:
            return m.group(1), m.group(2).replace('""', '"')
    return '', ''


def alt_ler(cam, ini=0):
    """The change entries of an install record (JSON Lines) from byte ini on, where
    this run's part begins, or None when there is no record. A run that was killed
    may have left its last line cut short and no "end" line: a line that is no JSON
    object is passed over."""
    try:
        with open(cam, 'rb') as f:
            f.seek(ini)
            lins = f.read().decode('utf-8', errors='replace').splitlines()
    except OSError:
        return None
    alt = []
    for lin in lins:
        try:
            ent = json.loads(lin)
        except ValueError:
            continue
        if isinstance(ent, dict) and ent.get('op') not in REC_MARCAS:
            alt.append(ent)
    return alt


def rec_sup(module, exe):
    """Whether the program writes install records: its --help names --record. An
    older zunwiz-run would take the option for a word of the wizard's own."""
    rc, out, _ = module.run_command([exe, '--help'])
    return rc == 0 and '--record' in out


def rec_tam(cam):
    """The size of a record before the run, where the run's own part will begin."""
    try:
        return os.stat(cam).st_size
    except OSError:
        return 0


def exe_cam(module, nome):
    """The program's path: as given when it names a path, else found on the PATH."""
    if os.sep in nome:
        return nome
    return module.get_bin_path(nome, required=True)


def chk_exe(module, wizard, pal):
    """Check mode: zunwiz-check reads the file (with the same KEY=value words) and
    runs nothing; errors fail the task, and nothing is changed either way."""
    chk = exe_cam(module, module.params['checker'])
    rc, out, err = module.run_command([chk, wizard] + pal[2:])
    rel = out.splitlines()
    if rc != 0:
        module.fail_json(msg='zunwiz-check found errors in %s' % wizard, rc=rc, check=rel,
                         stderr=err, changed=False)
    module.exit_json(changed=False, check=rel, rc=rc)


def main():
    module = AnsibleModule(
        argument_spec=dict(
            wizard=dict(type='path', required=True),
            answers=dict(type='raw'),
            env=dict(type='dict', default={}),
            values=dict(type='dict', default={}),
            timeout=dict(type='int'),
            record=dict(type='path'),
            keep_replaced=dict(type='path'),
            shots=dict(type='path'),
            executable=dict(type='str', default='zunwiz-run'),
            checker=dict(type='str', default='zunwiz-check'),
        ),
        required_by=dict(keep_replaced='record'),
        supports_check_mode=True,
    )
    p = module.params
    wizard = os.path.abspath(p['wizard'])
    if not os.path.isfile(wizard):
        module.fail_json(msg='wizard file not found: %s' % wizard)
    pal = pal_lin(module, wizard, p['values'])
    if module.check_mode:
        chk_exe(module, wizard, pal)
    if p['timeout'] is not None and p['timeout'] < 0:
        module.fail_json(msg='timeout takes a whole number of seconds, 0 for no limit')

    exe = exe_cam(module, p['executable'])
    tmp = tempfile.mkdtemp(prefix='zunwiz-', dir=module.tmpdir)
    trc_cam = os.path.join(tmp, 'trace')
    rec = os.path.abspath(p['record']) if p['record'] else os.path.join(tmp, 'record')
    rec_ini = rec_tam(rec)
    cmd = [exe, '--answers', rsp_prp(module, p['answers'], tmp), '--trace', trc_cam]
    if rec_sup(module, exe):
        cmd += ['--record', rec]
        if p['keep_replaced']:
            cmd += ['--keep-replaced', os.path.abspath(p['keep_replaced'])]
    if p['timeout'] is not None:
        cmd += ['--timeout', str(p['timeout'])]
    if p['shots']:
        cmd += ['--shots', os.path.abspath(p['shots'])]
    cmd += ['--'] + pal
    amb = dict((str(k), '' if v is None else str(v)) for k, v in p['env'].items())
    rc, out, err = module.run_command(cmd, environ_update=amb)

    trc = trc_ler(trc_cam)
    pal_res, msg_res = res_trc(trc)
    alt = alt_ler(rec, rec_ini)
    # No record: the run could not say what it changed. Unless it never got as far
    # as its wizard (the command line or the file), assume it changed something.
    changed = bool(alt) if alt is not None else rc not in (1, 2)
    res = dict(changed=changed, rc=rc, status=STATUS.get(rc, 'status %d' % rc),
               verdict=pal_res, message=msg_res, trace=trc, changes=alt or [],
               stderr=err)
    if p['record']:
        res['record'] = rec
    if rc not in STATUS_OK:
        porque = msg_res or (err.strip().splitlines() or [''])[-1]
        res['msg'] = 'zunwiz-run ended with status %d (%s)%s' % (
            rc, res['status'], ': ' + porque if porque else '')
        module.fail_json(**res)
    module.exit_json(**res)


if __name__ == '__main__':
    main()
