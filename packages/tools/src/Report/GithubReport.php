<?php

declare(strict_types=1);

namespace Zorvel\Tools\Report;

use Symfony\Component\Console\Output\OutputInterface;

/** Workflow commands of GitHub Actions, which show the findings beside the changed lines. */
final readonly class GithubReport implements Report
{
    private const array IN_MESSAGE = ['%' => '%25', "\r" => '%0D', "\n" => '%0A'];

    private const array IN_PROPERTY = self::IN_MESSAGE + [':' => '%3A', ',' => '%2C'];

    public function write(array $findings, int $count, OutputInterface $output): void
    {
        foreach ($findings as $finding) {
            $file = strtr($finding->file, self::IN_PROPERTY);
            $message = strtr($finding->message, self::IN_MESSAGE);
            $place = "file=$file,line=$finding->line,col=$finding->column,title=$finding->rule";
            $output->writeln("::{$finding->level->value} $place::$message", OutputInterface::OUTPUT_RAW);
        }
    }
}
