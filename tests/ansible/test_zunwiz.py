# Unit tests of the "zunwiz" module's readers: the install record (a killed run's
# cut-short last line), the trace's verdict line, the answers and the kept record.
import importlib.util
import os
import tempfile
import unittest

_cam = os.path.join(os.path.dirname(__file__), '..', '..', 'packaging', 'ansible', 'zunwiz.py')
_spec = importlib.util.spec_from_file_location('zunwiz', _cam)
zunwiz = importlib.util.module_from_spec(_spec)
_spec.loader.exec_module(zunwiz)


def ler(cam):
    with open(cam, encoding='utf-8') as f:
        return f.read()


class Falha(Exception):
    pass


class ModFalso:
    """Stands in for AnsibleModule: fail_json raises with the message."""
    def fail_json(self, msg, **_):
        raise Falha(msg)


class Caso(unittest.TestCase):
    def setUp(self):
        self._tmp = tempfile.TemporaryDirectory()
        self.dir = self._tmp.name

    def tearDown(self):
        self._tmp.cleanup()

    def fic(self, nome, txt):
        cam = os.path.join(self.dir, nome)
        with open(cam, 'w', encoding='utf-8') as f:
            f.write(txt)
        return cam


class Registo(Caso):
    def test_changes_without_marks_and_a_cut_last_line(self):
        # A run killed half-way: no "end" line, the last entry cut in the middle.
        cam = self.fic('r', '{"op":"begin","argv":["x"]}\n'
                            '{"op":"folder-created","path":"/opt/a"}\n'
                            '{"op":"file-created","path":"/opt/a/b","size":3}\n'
                            '{"op":"file-repl')
        self.assertEqual([e['op'] for e in zunwiz.alt_ler(cam)], ['folder-created', 'file-created'])

    def test_begin_and_end_alone_are_no_change(self):
        cam = self.fic('r', '{"op":"begin"}\n{"op":"end","status":0}\n')
        self.assertEqual(zunwiz.alt_ler(cam), [])

    def test_lines_that_are_no_entry_are_passed_over(self):
        cam = self.fic('r', '\n3\n["op"]\n{"op":"end","status":8}\n{"op":"program-run","cmd":"x"}\n')
        self.assertEqual(zunwiz.alt_ler(cam), [{'op': 'program-run', 'cmd': 'x'}])

    def test_no_record_is_none_not_empty(self):
        self.assertIsNone(zunwiz.alt_ler(os.path.join(self.dir, 'falta')))

    def test_only_this_runs_part_of_a_record_counts(self):
        # The record holds an earlier run that created a file, cut short at its end;
        # this run, appended after it, changed nothing.
        ant = '{"op":"begin"}\n{"op":"file-created","path":"/a"}\n{"op":"file-rep'
        cam = self.fic('r', ant + '{"op":"begin"}\n{"op":"end","status":0}\n')
        self.assertEqual(zunwiz.alt_ler(cam, len(ant.encode())), [])
        self.assertEqual(len(zunwiz.alt_ler(cam)), 1)
        self.assertEqual(zunwiz.rec_tam(cam), os.path.getsize(cam))
        self.assertEqual(zunwiz.rec_tam(cam + '.falta'), 0)


class Traco(unittest.TestCase):
    def test_verdict_with_doubled_quotes(self):
        trc = ['page 1 INI', 'ctl laWiz(1) 0,0 9x9 on "result X ""y"""', 'end unload',
               'result FALHOU "A cópia para ""/x"" falhou|de novo"']
        self.assertEqual(zunwiz.res_trc(trc), ('FALHOU', 'A cópia para "/x" falhou|de novo'))

    def test_no_verdict(self):
        self.assertEqual(zunwiz.res_trc(['page 1 INI', 'end answers']), ('', ''))


class Respostas(Caso):
    def test_list_and_text_of_lines_become_a_file(self):
        for rsp in (['SEG', 'BOX 1', 'INPUT /srv/a b'], 'SEG\nBOX 1\nINPUT /srv/a b\n'):
            cam = zunwiz.rsp_prp(ModFalso(), rsp, self.dir)
            self.assertEqual(ler(cam), 'SEG\nBOX 1\nINPUT /srv/a b\n')

    def test_one_line_is_a_path_that_must_exist(self):
        cam = self.fic('a.ans', 'CAN\n')
        self.assertEqual(zunwiz.rsp_prp(ModFalso(), cam, self.dir), cam)
        with self.assertRaises(Falha):
            zunwiz.rsp_prp(ModFalso(), cam + '.falta', self.dir)
        self.assertEqual(zunwiz.rsp_prp(ModFalso(), None, self.dir), os.devnull)

    def test_a_blank_in_the_command_line_is_refused(self):
        self.assertEqual(zunwiz.pal_lin(ModFalso(), '/a/w.par', {'Produto': 'Contas'}),
                         ['-FP', '/a/w.par', 'Produto=Contas'])
        for wiz, val in (('/a b/w.par', {}), ('/a/w.par', {'Produto': 'Duas palavras'})):
            with self.assertRaises(Falha):
                zunwiz.pal_lin(ModFalso(), wiz, val)


if __name__ == '__main__':
    unittest.main()
