#!/bin/bash
# SPDX-FileCopyrightText: 2026 The Ostrel developers
# SPDX-License-Identifier: BSD-3-Clause

# A sweep of flange.jou as an array of Slurm jobs:  sbatch flange_sweep.sh  in a folder that all nodes have
#SBATCH --array=0-5
#SBATCH --ntasks=1
#SBATCH --output=flange_%a.log

radii=(6 9)
sizes=(4 6 8)
radius=${radii[SLURM_ARRAY_TASK_ID / ${#sizes[@]}]}
size=${sizes[SLURM_ARRAY_TASK_ID % ${#sizes[@]}]}
exec fennar --batch --set "radius=$radius" --set "size=$size" \
    --json "flange_$SLURM_ARRAY_TASK_ID.json" --play flange.jou
