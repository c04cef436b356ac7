<?php

declare(strict_types=1);

namespace Zorvel\Bench;

use RuntimeException;

/**
 * Compares what the engines made: equal but for blanks and for how a character reference is spelt. Between tags a
 * quotation mark may be one or none, since it means the same there; in a tag it may not.
 */
final class Output
{
    /** @param array<string, string> $outputs by engine */
    public static function assertSame(string $page, array $outputs): void
    {
        $plain = array_map(self::plain(...), $outputs);
        $first = (string) array_key_first($plain);
        foreach ($plain as $id => $text) {
            $text === $plain[$first] || throw new RuntimeException(self::difference($page, $first, $id, $plain));
        }
    }

    private static function plain(string $output): string
    {
        $reference = static fn(string $character): string => '&' . bin2hex($character) . ';';
        $spelt = (string) preg_replace_callback(
            '/&(?:#\d+|#x[\da-f]+|\w+);/i',
            static fn(array $match): string => $reference(html_entity_decode($match[0], ENT_QUOTES | ENT_HTML5)),
            $output,
        );
        $text = (string) preg_replace_callback(
            '/(?:^|>)[^<]*/',
            static fn(array $match): string => strtr($match[0], ['"' => $reference('"'), "'" => $reference("'")]),
            $spelt,
        );

        return (string) preg_replace('/\s+/', '', $text);
    }

    /** @param array<string, string> $plain */
    private static function difference(string $page, string $first, string $other, array $plain): string
    {
        $at = strspn($plain[$first] ^ $plain[$other], "\0");
        $near = static fn(string $id): string => "$id: ..." . substr($plain[$id], max(0, $at - 40), 80) . '...';

        return "The outputs of page $page differ.\n  " . $near($first) . "\n  " . $near($other);
    }
}
