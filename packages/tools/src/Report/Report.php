<?php

declare(strict_types=1);

namespace Zorvel\Tools\Report;

use Symfony\Component\Console\Output\OutputInterface;
use Zorvel\Tools\Finding;

/** A way to write findings down. */
interface Report
{
    /**
     * @param list<Finding> $findings
     * @param int $count of the templates that were read
     */
    public function write(array $findings, int $count, OutputInterface $output): void;
}
