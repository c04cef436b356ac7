<?php

declare(strict_types=1);

namespace Zorvel\Tools\Template;

use Zorvel\Engine;
use Zorvel\EngineFailure;

/** Asks the extension about a small text. */
final readonly class Probe
{
    /**
     * What makes the text's page null; null when nothing does.
     *
     * @param array<array-key, mixed> $data
     */
    public static function fault(string $text, array $data = []): ?string
    {
        try {
            @Engine::page($text, $data, true);
        } catch (EngineFailure $failure) {
            $own = ' in ' . substr($text, 0, strcspn($text, "\0"));

            return substr($failure->getMessage(), 0, -strlen($own));
        }

        return null;
    }
}
