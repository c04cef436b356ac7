<?php

declare(strict_types=1);

namespace Zorvel\Tools\Report;

use Symfony\Component\Console\Formatter\OutputFormatter;
use Symfony\Component\Console\Output\OutputInterface;
use Zorvel\Tools\Finding;
use Zorvel\Tools\Level;

/** For people: one line for each finding, and a count. */
final readonly class TextReport implements Report
{
    public function write(array $findings, int $count, OutputInterface $output): void
    {
        foreach ($findings as $finding) {
            $color = $finding->level === Level::Error ? 'red' : 'yellow';
            $output->writeln(OutputFormatter::escape("$finding->file:$finding->line:$finding->column: ")
                . "<fg=$color>{$finding->level->value}</>: " . OutputFormatter::escape("$finding->message [$finding->rule]"));
        }
        $levels = array_count_values(array_map(fn(Finding $finding): string => $finding->level->value, $findings));
        $output->writeln(sprintf(
            '%s and %s in %s',
            self::counted($levels['error'] ?? 0, 'error'),
            self::counted($levels['warning'] ?? 0, 'warning'),
            self::counted($count, 'template'),
        ));
    }

    private static function counted(int $count, string $what): string
    {
        return "$count $what" . ($count === 1 ? '' : 's');
    }
}
