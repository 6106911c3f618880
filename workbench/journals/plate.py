#!python
fennar.cmd('# SPDX-FileCopyrightText: 2026 The Ostrel developers')
fennar.cmd('# SPDX-License-Identifier: BSD-3-Clause')

fennar.cmd('# A plate with four holes and a pin in one of them. Needs the component geometry. plate.py is the same in Python, as')
fennar.cmd('# "Translate to Python" in the journal editor writes it.')
fennar.cmd('new')
fennar.cmd('brick 60 40 8 name plate')

fennar.cmd('# One drill, and copies of it.')
fennar.cmd('cylinder 4 20 at 20 12 0 name drill1')
fennar.cmd('copy drill1 by -40 0 0 name drill2')
fennar.cmd('copy drill1 by 0 -24 0 name drill3')
fennar.cmd('copy drill2 by 0 -24 0 name drill4')
fennar.cmd('subtract drill1 drill2 drill3 drill4 from plate')

fennar.cmd('cylinder 3.9 24 at 20 12 0 name pin')
fennar.cmd('list')

fennar.cmd('mesh plate pin size 4')
fennar.cmd('statistics')
fennar.cmd('quality')
fennar.cmd('echo \'The plate is done.\'')
