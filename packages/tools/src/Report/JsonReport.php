<?php

declare(strict_types=1);

namespace Zorvel\Tools\Report;

use Symfony\Component\Console\Output\OutputInterface;

/** For programs, editors for instance: a list of objects, each with the properties of a Finding. */
final readonly class JsonReport implements Report
{
    private const int FLAGS = JSON_PRETTY_PRINT | JSON_UNESCAPED_SLASHES | JSON_UNESCAPED_UNICODE
        | JSON_INVALID_UTF8_SUBSTITUTE | JSON_THROW_ON_ERROR;

    public function write(array $findings, int $count, OutputInterface $output): void
    {
        $output->writeln(json_encode($findings, self::FLAGS), OutputInterface::OUTPUT_RAW);
    }
}
