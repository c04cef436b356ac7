<?php

declare(strict_types=1);

namespace Zorvel\Bench;

use RuntimeException;

/** What script/bench was asked for. */
final readonly class Options
{
    /**
     * @param list<string> $pages
     * @param list<string> $engines
     * @param bool $check whether to compare what the engines make, and no more
     * @param ?string $repeat how often to render, null to measure
     * @param list<string> $under the command to run PHP under
     * @param bool $full whether all is measured that there is
     */
    private function __construct(
        public array $pages,
        public array $engines,
        public bool $quick,
        public bool $check,
        public ?string $repeat,
        public array $under,
        public bool $full,
    ) {}

    /** @param array<string, string|false|list<mixed>> $given as getopt() returns them */
    public static function of(array $given): self
    {
        $texts = array_filter($given, is_string(...));
        $quick = isset($given['quick']);

        return new self(
            self::chosen('page', Pages::names($quick), $texts['page'] ?? null),
            self::chosen('engine', array_keys(Engines::installed()), $texts['only'] ?? null),
            $quick,
            isset($given['check']),
            $texts['repeat'] ?? null,
            isset($texts['under']) ? explode(' ', $texts['under']) : [],
            $given === [],
        );
    }

    /**
     * @param list<string> $all
     * @param ?string $names some of them, separated by commas
     * @return list<string>
     */
    private static function chosen(string $what, array $all, ?string $names): array
    {
        $chosen = $names === null ? $all : explode(',', $names);
        foreach (array_diff($chosen, $all) as $unknown) {
            throw new RuntimeException("There is no $what $unknown; there are " . implode(', ', $all) . '.');
        }

        return $chosen;
    }
}
